// What every press waits for: from a key to the painted picture, in the whole application, on each
// of its screens.
#include "bench/offscreen.h"
#include "bench/running.h"

#include <algorithm>
#include <vector>

namespace vk::test {
namespace {

constexpr int Files = 2000;
constexpr int Presses = 1000;
constexpr double LimitMs = 16; ///< at the 99th percentile

/// `way` leads from the menu to the screen of that name; `there` and `back` move its cursor.
void KeyToPaint(benchmark::State& state, const std::vector<int>& way, const std::string& screen,
                int there = Qt::Key_Down, int back = Qt::Key_Up) {
    Running running(Files);
    if (!running.started) return state.SkipWithError("the application did not start");
    for (const int key : way)
        running.Go({key});
    // The tabs that lead to a page are many, and others' by the time.
    if (screen.starts_with("settings")) running.host().screens.Show(screen);
    Running::Run(Running::SettleTime);
    if (running.Front() != screen)
        return state.SkipWithError(("the keys led to " + running.Front()).c_str());
    std::vector<double> times;
    for (auto _ : state)
        for (int i = 0; i < Presses; ++i)
            if (const double ms = running.Press(i % 2 ? back : there); ms >= 0) times.push_back(ms);
    if (running.Front() != screen) return state.SkipWithError((running.Front() + " came").c_str());
    if (times.size() < Presses / 2) return state.SkipWithError("presses were not painted");
    std::sort(times.begin(), times.end());
    const double p99 = times[times.size() * 99 / 100];
    state.counters["median_ms"] = times[times.size() / 2];
    state.counters["p99_ms"] = p99;
    if (p99 > LimitMs) state.SkipWithError("slower than a frame");
}

const std::vector<int> ToBrowser = {Qt::Key_Right, Qt::Key_Return};
const std::vector<int> ToPlayer = {Qt::Key_Right, Qt::Key_Return, Qt::Key_Up, Qt::Key_Return};
const std::vector<int> ToSettings = {Qt::Key_P};

BENCHMARK_CAPTURE(KeyToPaint, menu, {}, HomeScreen, Qt::Key_Right, Qt::Key_Left)->Iterations(1);
BENCHMARK_CAPTURE(KeyToPaint, browser, ToBrowser, "playlists")->Iterations(1);
BENCHMARK_CAPTURE(KeyToPaint, player, ToPlayer, "playmp3")->Iterations(1);
BENCHMARK_CAPTURE(KeyToPaint, settings, ToSettings, "settings")->Iterations(1);
BENCHMARK_CAPTURE(KeyToPaint, settingsRemote, ToSettings, "settingsRemote")->Iterations(1);
BENCHMARK_CAPTURE(KeyToPaint, settingsKeyboard, ToSettings, "settingsKeyboard")->Iterations(1);

} // namespace
} // namespace vk::test

int main(int argc, char** argv) {
    return vk::test::RunOffscreen(argc, argv);
}
