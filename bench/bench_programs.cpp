// From a program's window on the screen to the same window in the system's frame.
#include "hosting/hosting.h"
#include "platform/files.h"
#include "platform/linux/x11/x11_windows.h"
#include "platform/qt/qt_child_process.h"
#include "platform/qt/qt_clock.h"
#include "tests/support/core_fixture.h"

#include <QCoreApplication>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>

namespace {

using namespace vk;
using Moment = std::chrono::steady_clock;

/// A display of its own, with a window manager or without.
struct Desktop : test::CoreFixture {
    explicit Desktop(bool managed) {
        std::string display;
        server.onOutput = [&](std::string_view text) { display += text; };
        server.Start("/usr/bin/Xvfb", {"-displayfd", "1", "-screen", "0", "800x480x24"});
        while (!display.ends_with('\n'))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        ::setenv("DISPLAY", (":" + display.substr(0, display.size() - 1)).c_str(), 1);
        // It manages before it is ready, and what comes meanwhile waits for seconds.
        const std::string ready = app.File("ready");
        if (managed)
            manager = programs->Start({"/usr/bin/openbox", {"--startup", "touch " + ready}, "/"});
        while (managed && !FileExists(ready))
            QCoreApplication::processEvents();
        connection = xcb_connect(nullptr, nullptr);
        windows = std::make_unique<X11Windows>(connection);
        state.ScreenWidth = 800;
        state.ScreenHeight = 480;
    }
    ~Desktop() {
        programs->Kill(manager);
        windows.reset();
        xcb_disconnect(connection);
    }
    /// Milliseconds.
    double Start(Base& real) {
        Hosting hosting({real, *programs, *windows});
        Moment::time_point mapped{};
        QTimer events; // no notifier of the wire: what is asked reads the events on it as well
        QObject::connect(&events, &QTimer::timeout, [&] {
            while (XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
                if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY &&
                    mapped == Moment::time_point{})
                    mapped = Moment::now();
                windows->Handle(*event);
            }
        });
        events.start(1);
        hosting.ExecCmd("/usr/bin/xterm", "a terminal", true, true);
        const auto framed = [&] {
            const auto all = WindowsOf(*windows, hosting.Current()->PID);
            return !all.empty() && all.back().area.width > 780 && all.back().area.height > 460;
        };
        while (hosting.Current() && !framed())
            QCoreApplication::processEvents();
        const auto end = Moment::now();
        // A manager may give it its frame before it shows it, and that is told later.
        while (hosting.Current() && mapped == Moment::time_point{})
            QCoreApplication::processEvents();
        hosting.CloseAll();
        return std::max(0.0, std::chrono::duration<double, std::milli>(end - mapped).count());
    }

    QtChildProcess server;
    std::unique_ptr<Programs> programs = MakePrograms();
    ProgramId manager = 0;
    xcb_connection_t* connection = nullptr;
    std::unique_ptr<X11Windows> windows;
};

void WindowFramed(benchmark::State& runs) {
    int argc = 1;
    char name[] = "bench";
    char* argv[] = {name, nullptr};
    QCoreApplication application(argc, argv);
    Desktop desktop(runs.range(0) != 0);
    QtClock clock;
    Pump pump(clock);
    Commands commands(pump, desktop.screens, clock);
    Base real{desktop.state,  desktop.settings, desktop.log,     desktop.report,  clock,
              pump,           commands,         desktop.screens, desktop.dialogs, desktop.window,
              desktop.locale, desktop.volumes};
    for (auto _ : runs)
        runs.SetIterationTime(desktop.Start(real) / 1000);
}
BENCHMARK(WindowFramed)
    ->ArgName("managed")
    ->Arg(0)
    ->Arg(1)
    ->Iterations(20)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
