#include "platform/player_window.h"

#include "platform/arguments.h"
#include "platform/linux/player_connection.h"
#include "platform/linux/spawn.h"

#include <csignal>
#include <utility>

namespace vk {

namespace {

// With what a press does besides it is answered within a quarter of a second.
constexpr int ReplyTimeoutMs = 200;
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
        if (SocketPlayerWindow::State() == PlayerState::Silent) SocketPlayerWindow::Kill();
        for (const ProgramId program : started_)
            if (!programs_.Wait(program, EndTimeoutMs)) programs_.Kill(program);
    }

    WindowHandle FindWindow(const std::string& windowClass) override {
        if (windowClass == class_ && connection_.Alive()) return handle_;
        class_ = windowClass;
        if (!connection_.Open(PlayerSocketPath(windowClass, folder_))) return 0;
        starting_ = 0;
        return ++handle_;
    }

    std::int32_t SendMessage(WindowHandle window, unsigned message, std::int32_t wParam,
                             std::int32_t lParam) override {
        if (window != handle_) return 0;
        return connection_.Ask({message, wParam, lParam}, ReplyTimeoutMs).result;
    }

    std::string Title(WindowHandle window) override {
        if (window != handle_) return {};
        return connection_.Ask({WM_GETTEXT, 0, 0}, ReplyTimeoutMs).text;
    }

    bool Start(const std::string& program, const std::string& folder) override {
        if (starting_ == 0 || !programs_.Running(starting_))
            starting_ = Start(program, {}, folder, started_);
        return starting_ != 0;
    }

    PlayerState State() override {
        if (SocketPlayerWindow::FindWindow(PlayerWindowClass) != 0)
            return connection_.Owes() ? PlayerState::Silent : PlayerState::Answers;
        const bool starting = starting_ != 0 && programs_.Running(starting_);
        return starting ? PlayerState::Starting : PlayerState::Gone;
    }

    // It may have been started by a system that went before this one.
    void Kill() override {
        const pid_t player = connection_.Alive() ? connection_.Process() : 0;
        if (player > 0) ::kill(player, SIGKILL);
        for (const ProgramId program : started_)
            programs_.Kill(program);
        connection_.Close();
        starting_ = 0;
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
    PlayerConnection connection_;
    WindowHandle handle_ = 0;
    ProgramId starting_ = 0; ///< the player that was started last and takes no messages yet
    std::vector<ProgramId> started_, ran_; ///< players; hand-overs
};

} // namespace

std::unique_ptr<PlayerWindow> MakePlayerWindow(Programs& programs, const std::string& folder) {
    return std::make_unique<SocketPlayerWindow>(programs, folder);
}

} // namespace vk
