// The player's real window, spoken to in the real messages.
#include "platform/player_window.h"

#include "platform/windows/wide_text.h"

#include <windows.h>

// The port's operations bear the names that windows.h makes macros of.
#undef FindWindow
#undef SendMessage

namespace vk {

namespace {

HWND ToWindow(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

// Starts hidden with that command line, as CreateProcessA would but for file names in any script.
// The caller closes the handles.
bool StartHidden(const std::string& commandLine, const std::string& folder,
                 PROCESS_INFORMATION& process) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    std::wstring line = ToWide(commandLine);
    return ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS,
                            nullptr, ToWide(folder).c_str(), &startup, &process) != 0;
}

class Win32PlayerWindow : public PlayerWindow {
  public:
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
        if (!StartHidden(program, folder, process)) return false;
        // The handles stay open for the life of the player, which ends with this process.
        ::WaitForInputIdle(process.hProcess, INFINITE);
        return true;
    }

    bool RunHidden(const std::string& program, const std::string& arguments,
                   const std::string& folder) override {
        PROCESS_INFORMATION process{};
        if (!StartHidden(program + " " + arguments, folder, process)) return false;
        const bool numbered = process.dwProcessId > 0;
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
        return numbered;
    }
};

} // namespace

std::unique_ptr<PlayerWindow> MakePlayerWindow() {
    return std::make_unique<Win32PlayerWindow>();
}

} // namespace vk
