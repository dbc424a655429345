// What a question to the player costs the user-interface thread: one round trip through the
// adapter and the socket to a real player.
#include "platform/paths.h"
#include "platform/player_window.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>

namespace {

using namespace vk;

constexpr const char* WindowClass = "Winamp v1.x";
constexpr std::int32_t CloseCommand = 40001;

void QueryStatus(benchmark::State& state) {
    // A player of its own: the user's, if one runs, is left alone.
    char folder[] = "/tmp/velkorandum-bench-XXXXXX";
    if (!::mkdtemp(folder)) return state.SkipWithError("no temporary folder");
    ::setenv("XDG_RUNTIME_DIR", folder, 1);
    const auto window = MakePlayerWindow();
    window->StartAndWaitForInputIdle(JoinPath(VK_APP_DIR, "winamp"), VK_APP_DIR);
    const WindowHandle handle = window->FindWindow(WindowClass);
    if (handle == 0) return state.SkipWithError("the player did not start");
    for (auto _ : state)
        benchmark::DoNotOptimize(window->SendMessage(handle, WM_USER, 0, 104));
    window->SendMessage(handle, WM_COMMAND, CloseCommand, 0);
}
BENCHMARK(QueryStatus)->UseRealTime();

void FindWindowAgain(benchmark::State& state) {
    const auto window = MakePlayerWindow();
    for (auto _ : state)
        benchmark::DoNotOptimize(window->FindWindow(WindowClass));
}
BENCHMARK(FindWindowAgain)->UseRealTime();

} // namespace
