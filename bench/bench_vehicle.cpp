// What the vehicle waits for: silence after the ignition, sound after a sleep, the dimmed screen;
// and how often the system wakes the processor at the menu. With the real player process, on a
// display where there is one.
#include "app/application.h"
#include "app/linux/linux_ports.h"
#include "bench/song_folder.h"
#include "tests/support/fake_card.h"
#include "tests/support/fake_serial_port.h"
#include "tests/support/power_fakes.h"

#include <QApplication>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace vk::test {
namespace {

using SteadyClock = std::chrono::steady_clock;
using std::chrono::milliseconds;

double Since(SteadyClock::time_point begin) {
    return std::chrono::duration<double, std::milli>(SteadyClock::now() - begin).count();
}

QApplication& App() {
    static int argc = 1;
    static char name[] = "bench_vehicle";
    static char* argv[] = {name, nullptr};
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 0); // none is to be started
    if (!std::getenv("DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static QApplication app(argc, argv);
    return app;
}

/// The real system, but for the ignition's port and the machine's power.
class Running {
  public:
    Running() {
        std::ofstream(folder_.dir.File("settings.ini"), std::ios::app)
            << "[AccControl]\naccSensePort=1\n";
        const Ports real = machine_.ports();
        Ports ports{real.machine,
                    real.screen,
                    real.sound,
                    real.remote,
                    {power, real.vehicle.gamma, real.vehicle.backlight},
                    real.tuners,
                    real.navigation,
                    real.films};
        ports.remote.serial = [this] {
            auto made = std::make_unique<FakeSerialPort>();
            serial = made.get();
            return made;
        };
        app_ = std::make_unique<Application>(folder_.dir.Path(), ports, [] {});
        started = folder_.ready && app_->Start();
        Run(milliseconds(500));
    }
    /// By the menu's tile of the browser, the last song; false when nothing plays then.
    bool Play() {
        for (const int key : {Qt::Key_Right, Qt::Key_Return, Qt::Key_Up, Qt::Key_Return}) {
            for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                QKeyEvent event(type, key, Qt::NoModifier);
                QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
            }
            Run(milliseconds(1500)); // a new screen is deaf
        }
        return Until("1") < NeverMs;
    }
    std::string Status() { return app_->rooms().playback.winamp->WinAMP_GetStatus(); }
    /// Lets the system be for so long.
    static void Run(milliseconds time) {
        QEventLoop loop;
        QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    }
    static constexpr double NeverMs = 2000;
    /// Milliseconds from what is done until the player process says so, asked all the time.
    double Until(
        const char* status, const std::function<void()>& done = [] {}) {
        const auto begin = SteadyClock::now();
        done();
        while (Status() != status && Since(begin) < NeverMs)
            QCoreApplication::processEvents();
        return Since(begin);
    }
    VehicleModule& vehicle() { return app_->rooms().vehicle; }

    FakePower power;
    FakeSerialPort* serial = nullptr;
    bool started = false;

  private:
    FakeCard card_{{"Master Playback", "PCM Playback"}};
    SongFolder folder_{100};
    LinuxPorts machine_{folder_.dir.Path()};
    std::unique_ptr<Application> app_;
};

void Report(benchmark::State& state, std::vector<double> times, double limitMs) {
    std::ranges::sort(times);
    state.counters["ms median"] = times[times.size() / 2];
    state.counters["ms of 95 in 100"] = times[times.size() * 95 / 100];
    state.counters["ms worst"] = times.back();
    if (times.back() <= limitMs) return;
    state.SkipWithError(("slower than it may be, " + std::to_string(times.back()) + " ms").c_str());
}

void CarrierToSilence(benchmark::State& state) {
    App();
    Running running;
    if (!running.Play()) return state.SkipWithError("nothing plays");
    std::vector<double> times;
    for (auto _ : state) {
        times.push_back(running.Until("2", [&] { running.serial->SetCarrier(false); }));
        Running::Run(milliseconds(300));
        running.serial->SetCarrier(true);
        running.Until("1");
        Running::Run(milliseconds(300));
    }
    Report(state, times, 50);
}

void WakeToSound(benchmark::State& state) {
    App();
    Running running;
    if (!running.Play()) return state.SkipWithError("nothing plays");
    std::vector<double> times;
    for (auto _ : state) {
        running.power.Sleep();
        Running::Run(milliseconds(200));
        times.push_back(running.Until("1", [&] { running.power.Wake(); }));
    }
    Report(state, times, 300);
}

void Dim(benchmark::State& state) {
    App();
    Running running;
    std::vector<double> times;
    for (auto _ : state) {
        const auto begin = SteadyClock::now();
        running.vehicle().SetDimmer(false);
        times.push_back(Since(begin));
    }
    Report(state, times, 5);
}

long Switches() {
    std::ifstream status("/proc/self/status");
    long count = 0;
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("voluntary_ctxt_switches:")) count = std::stol(line.substr(24));
    return count;
}

// Of the interface's thread.
void WakeUpsAtTheMenu(benchmark::State& state) {
    App();
    Running running;
    constexpr int Seconds = 10;
    QTimer end;
    QEventLoop loop;
    QObject::connect(&end, &QTimer::timeout, &loop, &QEventLoop::quit);
    long switches = 0;
    for (auto _ : state) {
        Running::Run(milliseconds(3000));
        end.start(Seconds * 1000);
        const long before = Switches();
        loop.exec();
        switches = Switches() - before;
    }
    state.counters["a second"] = static_cast<double>(switches) / Seconds;
    const std::string told = std::to_string(switches) + " in 10 s";
    if (switches > 8 * Seconds) state.SkipWithError(("more often than it may: " + told).c_str());
}

BENCHMARK(CarrierToSilence)->Iterations(30)->Unit(benchmark::kMillisecond);
BENCHMARK(WakeToSound)->Iterations(30)->Unit(benchmark::kMillisecond);
BENCHMARK(Dim)->Iterations(200)->Unit(benchmark::kMillisecond);
BENCHMARK(WakeUpsAtTheMenu)->Iterations(1)->Unit(benchmark::kSecond);

} // namespace
} // namespace vk::test
