// winamp: the audio player. It has no window; its remote control finds it by a socket that bears
// the window class's name.
//
//   winamp               runs the player; ends at once when one runs already
//   winamp /ADD "file"   adds a media file or a list to the running player, or runs with it
#include "core/text.h"
#include "platform/paths.h"
#include "platform/user_folders.h"
#include "player/engine/hand_over.h"
#include "player/engine/list_file.h"
#include "player/engine/player.h"

#include <chrono>
#include <filesystem>
#include <thread>

namespace {

using namespace vk;

// Another player that is just starting or ending is waited for: it takes milliseconds.
constexpr auto ClaimTimeout = std::chrono::seconds(3);
constexpr auto ClaimStep = std::chrono::milliseconds(2);

std::string FileToAdd(int count, char** words) {
    if (count < 3 || !EqualNoCase(words[1], "/ADD")) return {};
    std::error_code ignored;
    const auto path = std::filesystem::absolute(words[2], ignored);
    return ignored ? std::string(words[2]) : path.lexically_normal().string();
}

} // namespace

int main(int count, char** words) {
    const std::int64_t started = SteadyNanoseconds();
    HoldSignals();
    const std::string file = FileToAdd(count, words);
    const auto entries = file.empty() ? std::vector<std::string>() : ListEntries(file);
    const std::string path = PlayerSocketPath(PlayerWindowClass, ExecutableFolder());
    Instance instance(path, PlayerSocketPath(PlayerWindowClass));
    const auto deadline = std::chrono::steady_clock::now() + ClaimTimeout;
    do {
        if (instance.Claim()) {
            RunPlayer(instance, FindFolders(ExecutableFolder()).state, entries);
            return 0;
        }
        const FileDescriptor running = ConnectTo(path);
        if (running && (file.empty() || HandOver(running, entries, started))) return 0;
        std::this_thread::sleep_for(ClaimStep);
    } while (std::chrono::steady_clock::now() < deadline);
    return 1;
}
