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

constexpr DWORD EndTimeoutMs = 500;

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
        return reinterpret_cast<WindowHandle>(::FindWindowA(windowClass.c_str(), nullptr));
    }

    std::int32_t SendMessage(WindowHandle window, unsigned message, std::int32_t wParam,
                             std::int32_t lParam) override {
        return static_cast<std::int32_t>(::SendMessageA(
            ToWindow(window), message, static_cast<WPARAM>(wParam), static_cast<LPARAM>(lParam)));
    }

    bool StartAndWaitForInputIdle(const std::string& program, const std::string& folder) override {
        PROCESS_INFORMATION process{};
        if (!StartProcess({.program = program, .arguments = {}, .folder = folder, .hidden = true},
                          process))
            return false;
        ::CloseHandle(process.hThread);
        Keep(process.hProcess);
        ::WaitForInputIdle(player_, INFINITE);
        return true;
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
    void Keep(HANDLE player) {
        if (player_) ::CloseHandle(player_);
        player_ = player;
    }

    HANDLE player_ = nullptr;
};

} // namespace

std::unique_ptr<PlayerWindow> MakePlayerWindow(Programs& /*programs*/,
                                               const std::string& /*folder*/) {
    return std::make_unique<Win32PlayerWindow>();
}

} // namespace vk
