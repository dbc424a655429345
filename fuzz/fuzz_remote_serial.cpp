// Feeds any bytes, split and paused in any way, and any errors to the serial receivers.
#include "input/remote/serial_receiver.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_serial_port.h"

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

using namespace vk;

void Check(bool holds) {
    if (!holds) std::abort();
}

/// One input byte says what happens next: mostly that the next bytes arrive.
class Line {
  public:
    explicit Line(const char* type) {
        auto made = std::make_unique<test::FakeSerialPort>();
        port_ = made.get();
        receiver_.emplace(SerialReceiver::Needs{.port = std::move(made),
                                                .device = "device",
                                                .model = ModelOfType(type),
                                                .clock = clock_,
                                                .log = log_});
        receiver_->onCode = [this](const std::string& code) { Take(code); };
        receiver_->Start();
        clock_.Advance(500);
    }
    void Step(std::uint8_t what, std::string_view& bytes) {
        if (what == 0xFF) return port_->Unplug();
        if (what == 0xFE) port_->present = true;
        if (what == 0xFD) return receiver_->ClearBuff();
        if (what >= 0xF0) return port_->OnComm(comEventBreak + what % 12);
        if (what >= 0xC0) return clock_.Advance(what - 0xBF);
        if (what >= 0xB0) return clock_.Advance(1000);
        const auto size = std::min<std::size_t>(what, bytes.size());
        port_->Receive(bytes.substr(0, size));
        bytes.remove_prefix(size);
    }
    void End() { clock_.Advance(10'000); }

  private:
    void Take(const std::string& code) {
        Check(!code.empty() && code.size() <= 3 * SerialReceiver::MaxBurst);
        Check(code.find_first_not_of("0123456789") == std::string::npos);
        if (code.back() == '7') receiver_->Stop();
    }

    test::FakeClock clock_;
    DebugLog log_{"/nowhere", clock_};
    test::FakeSerialPort* port_ = nullptr;
    std::optional<SerialReceiver> receiver_;
};

void Run(const char* type, std::string_view bytes) {
    Line line(type);
    while (!bytes.empty()) {
        const auto what = static_cast<std::uint8_t>(bytes.front());
        bytes.remove_prefix(1);
        line.Step(what, bytes);
    }
    line.End();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Run("IRMAN", bytes);
    Run("CREATIVE", bytes);
    ParseSerialSettings(bytes);
    SerialPortName(bytes);
    return 0;
}
