#include "platform/player_window.h"

#include "platform/linux/player_socket.h"
#include "platform/linux/spawn.h"

#include <chrono>
#include <thread>
#include <utility>

namespace vk {

namespace {

using namespace std::chrono_literals;

constexpr int ReplyTimeoutMs = 1000;
constexpr auto StartTimeout = 5s;
constexpr auto StartStep = 2ms;
constexpr int EndTimeoutMs = 500;

/// The player as a socket: a "window" is one connection, and a handle names one connection, so that
/// a message to a player that was restarted since goes nowhere.
class SocketPlayerWindow : public PlayerWindow {
  public:
    SocketPlayerWindow(Programs& programs, std::string folder)
        : programs_(programs), folder_(std::move(folder)) {}
    // A hand-over that comes to its end after the player has closed would become a player itself,
    // which nobody would ever close.
    ~SocketPlayerWindow() override {
        for (const ProgramId program : ran_)
            programs_.Kill(program);
        for (const ProgramId program : started_)
            if (!programs_.Wait(program, EndTimeoutMs)) programs_.Kill(program);
    }

    WindowHandle FindWindow(const std::string& windowClass) override {
        if (windowClass == class_ && ConnectionAlive(connection_)) return handle_;
        class_ = windowClass;
        connection_ = ConnectTo(PlayerSocketPath(windowClass, folder_));
        return connection_ ? ++handle_ : 0;
    }

    std::int32_t SendMessage(WindowHandle window, unsigned message, std::int32_t wParam,
                             std::int32_t lParam) override {
        if (window != handle_ || !ConnectionAlive(connection_)) return 0;
        const auto answer = AskPlayer(connection_, {message, wParam, lParam}, {}, ReplyTimeoutMs);
        // A late reply would be taken for that of the next message.
        if (!answer) connection_.Close();
        return answer.value_or(0);
    }

    bool StartAndWaitForInputIdle(const std::string& program, const std::string& folder) override {
        const ProgramId player = Start(program, {}, folder, started_);
        const auto deadline = std::chrono::steady_clock::now() + StartTimeout;
        while (player && FindWindow(PlayerWindowClass) == 0 && programs_.Running(player) &&
               std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(StartStep);
        return player != 0;
    }

    bool RunHidden(const std::string& program, const std::string& arguments,
                   const std::string& folder) override {
        return Start(program, SplitArguments(arguments), folder, ran_) != 0;
    }

  private:
    ProgramId Start(const std::string& program, std::vector<std::string> arguments,
                    const std::string& folder, std::vector<ProgramId>& kept) {
        std::erase_if(kept, [&](ProgramId id) { return !programs_.Running(id); });
        const ProgramId id = programs_.Start({.program = program,
                                              .arguments = std::move(arguments),
                                              .folder = folder,
                                              .hidden = true});
        if (id != 0) kept.push_back(id);
        return id;
    }

    Programs& programs_;
    const std::string folder_;
    std::string class_;
    FileDescriptor connection_;
    WindowHandle handle_ = 0;
    std::vector<ProgramId> started_, ran_; ///< players; hand-overs
};

} // namespace

std::unique_ptr<PlayerWindow> MakePlayerWindow(Programs& programs, const std::string& folder) {
    return std::make_unique<SocketPlayerWindow>(programs, folder);
}

} // namespace vk
