// The player's real window, spoken to in the real messages.
#include "platform/player_window.h"

#include "platform/windows/start_process.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

// The port's operations bear the names that windows.h makes macros of.
#undef FindWindow
#undef SendMessage

namespace vk {

namespace {

constexpr char PlayerWindowClass[] = "Winamp v1.x";
constexpr DWORD EndTimeoutMs = 500;
// With what a press does besides it is answered within a quarter of a second.
constexpr UINT ReplyTimeoutMs = 200;

HWND ToWindow(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

class Win32PlayerWindow : public PlayerWindow {
  public:
    ~Win32PlayerWindow() override {
        if (player_ && ::WaitForSingleObject(player_, EndTimeoutMs) != WAIT_OBJECT_0)
            ::TerminateProcess(player_, 0);
        Keep(nullptr);
    }

    WindowHandle FindWindow(const std::string& windowClass) override {
        window_ = ::FindWindowA(windowClass.c_str(), nullptr);
        return reinterpret_cast<WindowHandle>(window_);
    }

    std::int32_t SendMessage(WindowHandle window, unsigned message, std::int32_t wParam,
                             std::int32_t lParam) override {
        if (silent_ && !Answering()) {
            ::PostMessageA(ToWindow(window), message, static_cast<WPARAM>(wParam), lParam);
            return 0;
        }
        DWORD_PTR result = 0;
        silent_ = ToWindow(window) != nullptr &&
                  ::SendMessageTimeoutA(ToWindow(window), message, static_cast<WPARAM>(wParam),
                                        static_cast<LPARAM>(lParam), SMTO_ABORTIFHUNG,
                                        ReplyTimeoutMs, &result) == 0;
        return static_cast<std::int32_t>(result);
    }

    // The system keeps a copy of the title: no window is asked.
    std::string Title(WindowHandle window) override {
        wchar_t text[512];
        const int length = ::InternalGetWindowText(ToWindow(window), text, 512);
        return FromWide(std::wstring(text, static_cast<std::size_t>(length)));
    }

    bool Start(const std::string& program, const std::string& folder) override {
        if (Running()) return true;
        PROCESS_INFORMATION process{};
        if (!StartProcess({.program = program, .arguments = {}, .folder = folder, .hidden = true},
                          process))
            return false;
        ::CloseHandle(process.hThread);
        Keep(process.hProcess);
        return true;
    }

    PlayerState State() override {
        if (FindWindow(PlayerWindowClass) != 0)
            return silent_ && !Answering() ? PlayerState::Silent : PlayerState::Answers;
        return Running() ? PlayerState::Starting : PlayerState::Gone;
    }

    // It may have been started by a system that went before this one.
    void Kill() override {
        DWORD id = 0;
        if (window_) ::GetWindowThreadProcessId(window_, &id);
        const HANDLE found = id != 0 ? ::OpenProcess(PROCESS_TERMINATE, FALSE, id) : nullptr;
        if (found) ::TerminateProcess(found, 1);
        if (found) ::CloseHandle(found);
        if (player_) ::TerminateProcess(player_, 1);
        silent_ = false;
    }

    // The player's command line is its own: the quotes stay where they stand.
    bool RunHidden(const std::string& program, const std::string& arguments,
                   const std::string& folder) override {
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_HIDE;
        PROCESS_INFORMATION process{};
        std::wstring line = ToWide("\"" + program + "\" " + arguments);
        if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS,
                              nullptr, ToWide(folder).c_str(), &startup, &process))
            return false;
        const bool numbered = process.dwProcessId > 0;
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
        return numbered;
    }

  private:
    bool Running() const { return player_ && ::WaitForSingleObject(player_, 0) == WAIT_TIMEOUT; }
    /// Asked without a wait: a message that says nothing is answered at once by whoever is back.
    bool Answering() {
        DWORD_PTR ignored = 0;
        silent_ = ::SendMessageTimeoutA(window_, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 1, &ignored) == 0;
        return !silent_;
    }
    void Keep(HANDLE player) {
        if (player_) ::CloseHandle(player_);
        player_ = player;
    }

    HANDLE player_ = nullptr;
    HWND window_ = nullptr; ///< as last found
    bool silent_ = false;
};

} // namespace

std::unique_ptr<PlayerWindow> MakePlayerWindow(Programs& /*programs*/,
                                               const std::string& /*folder*/) {
    return std::make_unique<Win32PlayerWindow>();
}

} // namespace vk
