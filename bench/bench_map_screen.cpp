// From a sentence of the receiver to the label on the map's screen, and what an hour of them costs.
#include "tests/support/map_screen.h"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>

namespace vk::test {
namespace {

constexpr const char* Moving = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,,*6A\r\n";
constexpr const char* Turned = "$GPRMC,123520,A,4807.038,N,01131.000,E,031.7,184.4,230394,,*6A\r\n";

struct ShownMap : MapScreen {
    ShownMap() : MapScreen(VK_APP_DIR "/skins") { Make({800, 480}); }
};

QApplication& App() {
    static int argc = 1;
    static char name[] = "bench_map_screen";
    static char* argv[] = {name, nullptr};
    if (!std::getenv("DISPLAY")) setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static QApplication app(argc, argv);
    return app;
}

// Bytes in, the label painted.
void SentenceToLabel(benchmark::State& state) {
    App();
    ShownMap map;
    QCoreApplication::processEvents();
    bool turned = false;
    for (auto _ : state) {
        map.engine.Receive(turned ? Moving : Turned);
        turned = !turned;
        QCoreApplication::processEvents();
    }
}
BENCHMARK(SentenceToLabel)->Unit(benchmark::kMicrosecond);

// 36,000 sentences, ten a second for an hour of the test's clock, all the way to the painted label:
// the longest of them, and what the heap has grown by behind the first minute.
void AnHourOfSentences(benchmark::State& state) {
    App();
    ShownMap map;
    const auto tenth = [&](int number) {
        const auto begin = std::chrono::steady_clock::now();
        map.engine.Receive(number % 2 ? Moving : Turned);
        map.clock.Advance(100);
        QCoreApplication::processEvents();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
            .count();
    };
    double longest = 0;
    for (auto _ : state) {
        for (int i = 0; i < 600; ++i)
            tenth(i);
        const auto before = static_cast<double>(mallinfo2().uordblks);
        for (int i = 0; i < 36'000; ++i)
            longest = std::max(longest, tenth(i));
        state.counters["grown bytes"] = static_cast<double>(mallinfo2().uordblks) - before;
    }
    state.counters["longest ms"] = longest;
}
BENCHMARK(AnHourOfSentences)->Unit(benchmark::kMillisecond)->Iterations(1);

// What the screen does each second beside.
void ASecondOfTheScreen(benchmark::State& state) {
    App();
    ShownMap map;
    for (auto _ : state) {
        map.clock.Advance(1000);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(ASecondOfTheScreen)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace vk::test
