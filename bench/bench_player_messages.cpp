// What a question to the player costs the user-interface thread: one round trip through the
// adapter and the socket to a real player.
#include "platform/paths.h"
#include "platform/player_window.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace {

using namespace vk;

constexpr const char* WindowClass = "Winamp v1.x";
constexpr std::int32_t CloseCommand = 40001;

/// A player of its own: the user's, if one runs, is left alone.
class PrivatePlayer {
  public:
    PrivatePlayer() {
        char pattern[] = "/tmp/velkorandum-bench-XXXXXX";
        folder_ = ::mkdtemp(pattern);
        ::setenv("XDG_RUNTIME_DIR", folder_.c_str(), 1);
        window->Start(JoinPath(VK_APP_DIR, "winamp"), VK_APP_DIR);
        for (int tries = 0; tries < 1000 && handle == 0; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            handle = window->FindWindow(WindowClass);
        }
    }
    ~PrivatePlayer() {
        window->SendMessage(handle, WM_COMMAND, CloseCommand, 0);
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    PrivatePlayer(const PrivatePlayer&) = delete;
    PrivatePlayer& operator=(const PrivatePlayer&) = delete;

    std::unique_ptr<Programs> programs = MakePrograms();
    std::unique_ptr<PlayerWindow> window = MakePlayerWindow(*programs, VK_APP_DIR);
    WindowHandle handle = 0;

  private:
    std::string folder_;
};

PrivatePlayer& Player() {
    static PrivatePlayer player;
    return player;
}

void QueryStatus(benchmark::State& state) {
    PrivatePlayer& player = Player();
    if (player.handle == 0) state.SkipWithError("the player did not start");
    for (auto _ : state)
        benchmark::DoNotOptimize(player.window->SendMessage(player.handle, WM_USER, 0, 104));
}
BENCHMARK(QueryStatus)->UseRealTime();

void FindWindowAgain(benchmark::State& state) {
    PrivatePlayer& player = Player();
    for (auto _ : state)
        benchmark::DoNotOptimize(player.window->FindWindow(WindowClass));
}
BENCHMARK(FindWindowAgain)->UseRealTime();

} // namespace
