#include "dbupdate/scan/serve.h"

#include "dbupdate/scan/scan.h"
#include "platform/background.h"
#include "platform/qt/qt_clock.h"
#include "platform/standard_streams.h"

#include <array>
#include <atomic>
#include <mutex>
#include <string>
#include <thread>

namespace vk {

namespace {

class Server {
  public:
    ~Server() { Stop(); }

    void Run() {
        std::array<char, 4096> bytes;
        while (!quit_) {
            const std::size_t got = streams_.Read(bytes.data(), bytes.size());
            if (got == 0) return;
            lines_.Feed({bytes.data(), got}, [this](std::string_view line) { Take(line); });
        }
    }

  private:
    void Take(std::string_view line) {
        const auto request = ParseRequest(line);
        if (!request) return Refuse("not understood: " + std::string(line.substr(0, 100)));
        if (request->kind == ServerRequest::Kind::Scan) return Begin(request->scan);
        stop_ = true;
        quit_ = quit_ || request->kind == ServerRequest::Kind::Quit;
    }

    void Begin(const ScanRequest& request) {
        if (busy_) return Refuse("a scan is under way");
        Stop();
        stop_ = false;
        busy_ = true;
        scan_ = std::thread([this, request] {
            const QtClock clock;
            const DebugLog log(request.appDir, clock);
            RunScan(request, {log, [this](const ServerEvent& event) { Send(event); }, stop_});
        });
    }

    /// The last event of a scan may be answered with a request, so it must not find the server
    /// busy.
    void Send(const ServerEvent& event) {
        if (event.kind == ServerEvent::Kind::StatusChanged &&
            (event.state == DBStateValue::OnLine || event.state == DBStateValue::Disabled))
            busy_ = false;
        const std::string line = ToLine(event) + '\n';
        const std::lock_guard lock(output_);
        if (!streams_.Write(line)) stop_ = true; // nobody listens any more
    }

    void Refuse(const std::string& why) {
        ServerEvent event;
        event.kind = ServerEvent::Kind::DBError;
        event.error = {5, "DB_UPDATE", why, true};
        Send(event);
    }

    void Stop() {
        stop_ = true;
        if (scan_.joinable()) scan_.join();
    }

    StandardStreams streams_;
    LineSplitter lines_;
    std::mutex output_;
    std::atomic<bool> stop_ = false;
    std::atomic<bool> busy_ = false;
    bool quit_ = false;
    std::thread scan_;
};

} // namespace

int Serve() {
    WorkInBackground(); // the music must not stutter because of a scan
    Server().Run();
    return 0;
}

} // namespace vk
