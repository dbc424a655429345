#include "platform/player_window.h"

#include "platform/linux/player_socket.h"
#include "platform/linux/spawn.h"

#include <chrono>
#include <thread>

namespace vk {

namespace {

using namespace std::chrono_literals;

constexpr int ReplyTimeoutMs = 1000;
constexpr auto StartTimeout = 5s;
constexpr auto StartStep = 2ms;

/// The player as a socket: a "window" is one connection, and a handle names one connection, so that
/// a message to a player that was restarted since goes nowhere.
class SocketPlayerWindow : public PlayerWindow {
  public:
    WindowHandle FindWindow(const std::string& windowClass) override {
        reaper_.Reap();
        if (windowClass == class_ && ConnectionAlive(connection_)) return handle_;
        class_ = windowClass;
        connection_ = ConnectTo(PlayerSocketPath(windowClass));
        return connection_ ? ++handle_ : 0;
    }

    std::int32_t SendMessage(WindowHandle window, unsigned message, std::int32_t wParam,
                             std::int32_t lParam) override {
        reaper_.Reap();
        if (window != handle_ || !ConnectionAlive(connection_)) return 0;
        const auto answer = AskPlayer(connection_, {message, wParam, lParam}, {}, ReplyTimeoutMs);
        // A late reply would be taken for that of the next message.
        if (!answer) connection_.Close();
        return answer.value_or(0);
    }

    bool StartAndWaitForInputIdle(const std::string& program, const std::string& folder) override {
        const pid_t child = Spawn(program, {}, folder);
        if (child == 0) return false;
        const auto deadline = std::chrono::steady_clock::now() + StartTimeout;
        while (FindWindow(PlayerWindowClass) == 0 && reaper_.Running(child) &&
               std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(StartStep);
        return true;
    }

    bool RunHidden(const std::string& program, const std::string& arguments,
                   const std::string& folder) override {
        return Spawn(program, SplitArguments(arguments), folder) > 0;
    }

  private:
    pid_t Spawn(const std::string& program, const std::vector<std::string>& arguments,
                const std::string& folder) {
        reaper_.Reap();
        const pid_t child = SpawnDetached(program, arguments, folder);
        if (child > 0) reaper_.Add(child);
        return child;
    }

    ChildReaper reaper_;
    std::string class_;
    FileDescriptor connection_;
    WindowHandle handle_ = 0;
};

} // namespace

std::unique_ptr<PlayerWindow> MakePlayerWindow() {
    return std::make_unique<SocketPlayerWindow>();
}

} // namespace vk
