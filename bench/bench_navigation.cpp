// What the driver waits for at the map: from nothing to an engine that answers, from an address to
// its route, from a place to its address. With the real engine on the invented town, without a
// window where there is no display.
#include "navigation/navit/navit_engine.h"
#include "platform/qt/qt_clock.h"
#include "platform/qt/qt_foreign_windows.h"
#include "tests/engine/demo_town.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <optional>

namespace vk::test {
namespace {

QApplication& App() {
    static int argc = 1;
    static char name[] = "bench_navigation";
    static char* argv[] = {name, nullptr};
    if (!std::getenv("DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static QApplication app(argc, argv);
    return app;
}

template<class Condition> void Until(Condition condition) {
    while (!condition())
        App().processEvents(QEventLoop::WaitForMoreEvents);
}

struct Engine {
    Engine() : town(DemoTown::Get()), windows((App(), MakeForeignWindows())) {
        engine.Start({.map = town.Map(), .source = ""});
        Until([&] { return engine.State() == EngineState::Running; });
    }
    RouteStatus Route(const Address& to) {
        std::optional<RouteStatus> status;
        engine.CalculateRoute(to, [&](RouteStatus told) { status = told; });
        Until([&] { return status.has_value(); });
        return *status;
    }

    const DemoTown& town;
    TempFolder home;
    QtClock clock;
    std::unique_ptr<ForeignWindows> windows;
    NavitEngine engine{
        clock, MakeSentenceFeed(), {.folder = home.File("navigation"), .windows = windows.get()}};
};

void BM_StartToMap(benchmark::State& state) {
    for (auto unused : state) {
        Engine map;
        benchmark::DoNotOptimize(&map);
    }
}
BENCHMARK(BM_StartToMap)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_AddressToRoute(benchmark::State& state) {
    Engine map;
    for (auto unused : state)
        if (map.Route({"Steinach", "Am Anger", "7"}) != RouteFound) state.SkipWithError("no route");
}
BENCHMARK(BM_AddressToRoute)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_PlaceToAddress(benchmark::State& state) {
    Engine map;
    for (auto unused : state) {
        std::optional<GeoAddress> address;
        map.engine.ReverseGeocode(
            {48.900054, 9.101367},
            [&](const std::optional<GeoAddress>& told) { address = told.value_or(GeoAddress{}); });
        Until([&] { return address.has_value(); });
    }
}
BENCHMARK(BM_PlaceToAddress)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace vk::test
