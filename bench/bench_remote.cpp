// What a press of a button waits for: from a code's last byte on the serial line to the command,
// through the real port, event loop and clock. The silence that ends a code is part of it.
#include "core/error_report.h"
#include "input/remote/remote.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_ui_thread.h"
#include "tests/sim/pty_receiver.h"
#include "tests/support/fakes.h"
#include "tests/support/temp_folder.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace vk::test {
namespace {

constexpr int Presses = 500;
constexpr auto BetweenPresses = std::chrono::milliseconds(20);
constexpr double LimitMs = 10; ///< at the 99th percentile

using SteadyTime = std::chrono::steady_clock::time_point;

/// The remote on a pseudo-terminal, its filter switched off.
class Wired {
  public:
    explicit Wired(const char* type) {
        settings_.Write("remote", "type", type);
        settings_.Write("remote", "comport", app_.File("receiver"));
        settings_.values.remoteStatus = true;
        remote_.IRCommand = [this](const std::string&, bool) {
            done_ = std::chrono::steady_clock::now();
        };
        opened = remote_.InitRemote();
        Run(std::chrono::milliseconds(600));
    }
    /// Milliseconds from the last byte of one code to its command.
    double Press() {
        done_ = {};
        device_.Send("\x01\x02\x03");
        Run(std::chrono::milliseconds(2));
        device_.Send("\x04\x05\x06");
        const SteadyTime sent = std::chrono::steady_clock::now();
        while (done_ == SteadyTime{} &&
               std::chrono::steady_clock::now() - sent < std::chrono::seconds(2))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        Run(BetweenPresses);
        return std::chrono::duration<double, std::milli>(done_ - sent).count();
    }

    bool opened = false;

  private:
    static void Run(std::chrono::milliseconds time) {
        const SteadyTime end = std::chrono::steady_clock::now() + time;
        while (std::chrono::steady_clock::now() < end)
            QCoreApplication::processEvents(QEventLoop::AllEvents);
    }

    TempFolder app_;
    QtClock clock_;
    FakeDialogs dialogs_;
    DebugLog log_{app_.Path(), clock_};
    ErrorReport report_{log_, dialogs_};
    AppState state_;
    Ini ini_{state_.DecimalSymbol, report_};
    SettingsStore settings_{app_.Path(), ini_};
    Screens screens_;
    Pump pump_{clock_};
    Commands commands_{pump_, screens_, clock_};
    FakeWindowLayer window_;
    FakeLocale locale_;
    FakeVolumes volumes_;
    Base base_{state_,    settings_, log_,     report_, clock_,  pump_,
               commands_, screens_,  dialogs_, window_, locale_, volumes_};
    QtUiThread ui_;
    PtyReceiver device_{app_.File("receiver")};
    SerialOwners owners_;
    Remote remote_{
        {.base = base_,
         .ui = ui_,
         .devices = {.serial = [this] { return std::make_unique<QtSerialPort>(owners_); },
                     .stream = {},
                     .x10 = {},
                     .uuirt = {}}}};
    SteadyTime done_;
};

void PressToCommand(benchmark::State& state, const char* type) {
    char name[] = "bench_remote";
    char* arguments[] = {name, nullptr};
    int argc = 1;
    const QCoreApplication application(argc, arguments);
    Wired wired(type);
    if (!wired.opened) return state.SkipWithError("the receiver could not be opened");
    std::vector<double> times;
    for (auto _ : state) {
        times.push_back(wired.Press());
        state.SetIterationTime(times.back() / 1000);
    }
    std::sort(times.begin(), times.end());
    state.counters["median_ms"] = times[times.size() / 2];
    state.counters["p99_ms"] = times[times.size() * 99 / 100];
    if (times[times.size() * 99 / 100] > LimitMs) state.SkipWithError("slower than 10 ms");
}
BENCHMARK_CAPTURE(PressToCommand, IRMAN, "IRMAN")->UseManualTime()->Iterations(Presses);
BENCHMARK_CAPTURE(PressToCommand, CREATIVE, "CREATIVE")->UseManualTime()->Iterations(Presses);

} // namespace
} // namespace vk::test
