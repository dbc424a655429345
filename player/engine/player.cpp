#include "player/engine/player.h"

#include "platform/linux/sound_device.h"
#include "platform/paths.h"
#include "platform/player_window.h"
#include "player/engine/engine.h"
#include "player/engine/event_queue.h"
#include "player/engine/hand_over.h"
#include "player/engine/vis_program.h"
#include "player/engine/vlc_output.h"
#include "player/engine/wire_server.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <random>

namespace vk {

namespace {

// How long libVLC may take to let the device go at the end, in seconds.
constexpr unsigned EndLimit = 3;
constexpr std::int32_t VisCommand = 40192;

sigset_t HeldSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGCHLD})
        sigaddset(&signals, number);
    return signals;
}

std::string Packed(const std::vector<std::string>& entries) {
    std::string paths;
    for (const std::string& entry : entries)
        paths.append(entry).push_back('\0');
    return paths;
}

class PollLoop {
  public:
    PollLoop(Instance& instance, const std::string& folder)
        : instance_(instance),
          output_([this](const OutputEvent& event) { events_.Post(event); },
                  [] { return FindSoundDevice(SoundPlaces::OfEnvironment()); }),
          engine_(output_, ReadPlayerSettings(JoinPath(folder, "winamp.ini")), SteadyNanoseconds,
                  std::random_device()()),
          server_(instance.Listener(),
                  {[this](const PlayerRequest& request) { return Answer(request); },
                   [this](const std::string& paths, std::int64_t startedNs) {
                       engine_.AddList(paths, startedNs);
                   },
                   [this](const PlayerRequest& request) {
                       return request.lParam == FileText ? engine_.File() : engine_.Title();
                   },
                   [this](std::uint64_t client) { vis_.Left(client); }}),
          vis_(ExecutableFolder()) {
        const sigset_t signals = HeldSignals();
        signals_ = FileDescriptor(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    }

    void Run(const std::vector<std::string>& entries) {
        if (!entries.empty()) engine_.AddList(Packed(entries), SteadyNanoseconds());
        std::vector<pollfd> items;
        while (!closed_) {
            items.assign({{signals_.get(), POLLIN, 0}, {events_.Readable().get(), POLLIN, 0}});
            server_.Collect(items);
            if (::poll(items.data(), items.size(), -1) < 0) continue;
            if (items[0].revents != 0) TakeSignal();
            for (const OutputEvent& event : events_.Take())
                engine_.OnEvent(event);
            server_.Serve(items);
        }
        server_.CloseAll();
    }

  private:
    void TakeSignal() {
        signalfd_siginfo info{};
        if (::read(signals_.get(), &info, sizeof info) != sizeof info) return;
        info.ssi_signo == SIGCHLD ? vis_.Collect() : Close();
    }
    // The name is given up before the connection closes: whoever sees that may start a new player.
    void Close() {
        closed_ = true;
        instance_.Release();
    }
    std::optional<std::int32_t> Answer(const PlayerRequest& request) {
        if (request.message == WM_COMMAND && request.wParam == VisCommand)
            vis_.Toggle(server_.Asks());
        const auto answer = engine_.Message(request);
        if (!answer) Close();
        return answer;
    }

    Instance& instance_;
    EventQueue events_;
    VlcOutput output_;
    Engine engine_;
    WireServer server_;
    VisProgram vis_;
    FileDescriptor signals_;
    bool closed_ = false;
};

} // namespace

void HoldSignals() {
    const sigset_t signals = HeldSignals();
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
}

void RunPlayer(Instance& instance, const std::string& folder,
               const std::vector<std::string>& entries) {
    PollLoop loop(instance, folder);
    loop.Run(entries);
    // A device that hangs must not keep the process: the alarm ends it.
    ::alarm(EndLimit);
}

} // namespace vk
