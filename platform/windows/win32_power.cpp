#include "platform/windows/win32_power.h"

#include <powrprof.h>

#include <string>
#include <thread>
#include <utility>

namespace vk {

namespace {

constexpr wchar_t ClassName[] = L"VelkorandumPower";
constexpr UINT AnswerMessage = WM_APP + 1;
constexpr UINT PowerOffByForce = EWX_POWEROFF | EWX_FORCE;

// 0 for done, else the system's error.
DWORD Carry(PowerWish wish) {
    BOOL done = FALSE;
    if (wish == PowerWish::Hibernate) {
        done = ::SetSuspendState(TRUE, TRUE, FALSE);
    } else {
        EnableShutdownPrivilege();
        done = wish == PowerWish::Suspend ? ::SetSystemPowerState(TRUE, TRUE)
                                          : ::ExitWindowsEx(PowerOffByForce, 0);
    }
    const DWORD error = ::GetLastError();
    return done ? 0 : (error ? error : ERROR_GEN_FAILURE);
}

} // namespace

bool EnableShutdownPrivilege() {
    HANDLE token = nullptr;
    if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token))
        return false;
    TOKEN_PRIVILEGES wanted = {};
    wanted.PrivilegeCount = 1;
    wanted.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    const bool found =
        ::LookupPrivilegeValueA("", "SeShutdownPrivilege", &wanted.Privileges[0].Luid);
    // It succeeds as well where it gives nothing, and says so in the error alone.
    const bool given = found &&
                       ::AdjustTokenPrivileges(token, FALSE, &wanted, 0, nullptr, nullptr) &&
                       ::GetLastError() == ERROR_SUCCESS;
    ::CloseHandle(token);
    return given;
}

Win32Power::~Win32Power() {
    if (HookedWindow) ::DestroyWindow(HookedWindow);
}

void Win32Power::Listen() {
    listening_ = MakeWindow();
}

bool Win32Power::MakeWindow() {
    if (HookedWindow) return true;
    WNDCLASSW kind = {};
    kind.lpfnWndProc = &Win32Power::WindowProc;
    kind.hInstance = ::GetModuleHandleW(nullptr);
    kind.lpszClassName = ClassName;
    ::RegisterClassW(&kind); // a second time it is there already
    HookedWindow = ::CreateWindowW(ClassName, L"", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr,
                                   kind.hInstance, nullptr);
    if (HookedWindow)
        ::SetWindowLongPtrW(HookedWindow, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    return HookedWindow;
}

LRESULT CALLBACK Win32Power::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const power = reinterpret_cast<Win32Power*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    return power ? power->Handle(message, wParam, lParam)
                 : ::DefWindowProcW(window, message, wParam, lParam);
}

// The query is always granted, and nobody else sees it.
LRESULT Win32Power::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == AnswerMessage) {
        Answered(wParam, lParam);
        return 0;
    }
    if (message == WM_POWERBROADCAST && listening_ && onBroadcast) {
        const int event = static_cast<int>(wParam);
        onBroadcast(event, static_cast<long>(lParam));
        if (event == PBT_APMQUERYSUSPEND) return TRUE;
    }
    if (message == WM_ENDSESSION && wParam && listening_ && onShutdown) onShutdown();
    return ::DefWindowProcW(HookedWindow, message, wParam, lParam);
}

// Each call returns when the machine is awake again, which is too late for this thread.
void Win32Power::Ask(PowerWish wish, Answer answer) {
    if (!MakeWindow()) return answer("no window for the answer");
    const WPARAM ticket = ++ticket_;
    asked_[ticket] = std::move(answer);
    std::thread([window = HookedWindow, wish, ticket] {
        ::PostMessageW(window, AnswerMessage, ticket, static_cast<LPARAM>(Carry(wish)));
    }).detach();
}

void Win32Power::Answered(WPARAM ticket, LPARAM error) {
    const auto found = asked_.find(ticket);
    if (found == asked_.end()) return;
    const Answer answer = std::move(found->second);
    asked_.erase(found);
    answer(error == 0 ? std::string() : "Windows error " + std::to_string(error));
}

} // namespace vk
