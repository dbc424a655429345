#include "platform/windows/win32_windows.h"

#include "platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr LONG_PTR FrameBits = 0xCF0000; // caption, borders, system menu and boxes
constexpr LONG_PTR MinimizeBox = 0x20000;
constexpr UINT KeepPlace = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;

HWND Id(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

WindowHandle Handle(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

ForeignWindow Describe(HWND window) {
    wchar_t title[512] = L"", name[256] = L"";
    ::GetWindowTextW(window, title, 512);
    ::GetClassNameW(window, name, 256);
    DWORD program = 0;
    ::GetWindowThreadProcessId(window, &program);
    RECT area{};
    ::GetWindowRect(window, &area);
    return {.handle = Handle(window),
            .program = static_cast<ProgramId>(program),
            .title = FromWide(title),
            .windowClass = FromWide(name),
            .visible = ::IsWindowVisible(window) != 0,
            .ordinary = ((::GetWindowLongPtrW(window, GWL_STYLE) |
                          ::GetWindowLongPtrW(window, GWL_EXSTYLE)) &
                         MinimizeBox) != 0,
            .area = {area.left, area.top, area.right - area.left, area.bottom - area.top}};
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<ForeignWindow>*>(list)->push_back(Describe(window));
    return TRUE;
}

void SetStyle(HWND window, LONG_PTR style) {
    ::SetWindowLongPtrW(window, GWL_STYLE, style);
    ::SetWindowPos(window, nullptr, 0, 0, 0, 0, KeepPlace | SWP_NOZORDER | SWP_FRAMECHANGED);
}

} // namespace

Win32Windows::~Win32Windows() {
    HoldKeys({});
    while (!adopted_.empty())
        Return(adopted_.begin()->first);
}

// They are told from the front to the back.
std::vector<ForeignWindow> Win32Windows::List() const {
    std::vector<ForeignWindow> list;
    ::EnumWindows(Collect, reinterpret_cast<LPARAM>(&list));
    std::ranges::reverse(list);
    return list;
}

bool Win32Windows::Exists(WindowHandle window) const {
    return ::IsWindow(Id(window)) != 0;
}

bool Win32Windows::Adopt(WindowHandle window, WindowHandle host, const WindowArea& area) {
    if (!Exists(window) || !Exists(host)) return false;
    const LONG_PTR style = ::GetWindowLongPtrW(Id(window), GWL_STYLE);
    const HWND parent = ::SetParent(Id(window), Id(host));
    adopted_.try_emplace(window, Before{Handle(parent), style});
    SetStyle(Id(window), (style & ~FrameBits & ~LONG_PTR{WS_POPUP}) | WS_CHILD);
    Place(window, area);
    Show(window, true);
    return true;
}

// What cannot be used lets its parent have the input.
void Win32Windows::Shield(WindowHandle window) {
    if (adopted_.contains(window)) ::EnableWindow(Id(window), FALSE);
}

void Win32Windows::Return(WindowHandle window) {
    const auto before = adopted_.find(window);
    if (before == adopted_.end()) return;
    ::EnableWindow(Id(window), TRUE);
    ::SetParent(Id(window), Id(before->second.parent));
    SetStyle(Id(window), static_cast<LONG_PTR>(before->second.style));
    adopted_.erase(before);
}

void Win32Windows::Place(WindowHandle window, const WindowArea& area) {
    ::SetWindowPos(Id(window), nullptr, area.x, area.y, area.width, area.height,
                   SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

void Win32Windows::Show(WindowHandle window, bool shown) {
    ::ShowWindowAsync(Id(window), shown ? SW_SHOWNORMAL : SW_HIDE);
}

void Win32Windows::Raise(WindowHandle window) {
    if (::IsIconic(Id(window))) ::ShowWindowAsync(Id(window), SW_RESTORE);
    ::SetWindowPos(Id(window), HWND_TOP, 0, 0, 0, 0, KeepPlace | SWP_ASYNCWINDOWPOS);
}

void Win32Windows::SetTopmost(WindowHandle window, bool on) {
    ::SetWindowPos(Id(window), on ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                   KeepPlace | SWP_ASYNCWINDOWPOS);
}

void Win32Windows::Maximize(WindowHandle window) {
    ::ShowWindowAsync(Id(window), SW_SHOWMAXIMIZED);
}

void Win32Windows::SetFrame(WindowHandle window, bool on) {
    const LONG_PTR style = ::GetWindowLongPtrW(Id(window), GWL_STYLE);
    SetStyle(Id(window), on ? style | FrameBits : style & ~FrameBits);
}

// Only the thread in front may give the foreground away.
void Win32Windows::Focus(WindowHandle window) {
    const DWORD own = ::GetCurrentThreadId();
    const DWORD other = ::GetWindowThreadProcessId(Id(window), nullptr);
    ::AttachThreadInput(own, other, TRUE);
    ::SetForegroundWindow(Id(window));
    ::SetFocus(Id(window));
    ::AttachThreadInput(own, other, FALSE);
}

void Win32Windows::Close(WindowHandle window) {
    ::PostMessageW(Id(window), WM_CLOSE, 0, 0);
}

WindowHandle Win32Windows::Inside(WindowHandle window, const std::string& windowClass,
                                  const std::string& title) const {
    return Handle(
        ::FindWindowExW(Id(window), nullptr, ToWide(windowClass).c_str(), ToWide(title).c_str()));
}

void Win32Windows::PostMouse(WindowHandle window, bool down) {
    RECT area{};
    ::GetClientRect(Id(window), &area);
    ::PostMessageW(Id(window), down ? WM_LBUTTONDOWN : WM_LBUTTONUP, down ? MK_LBUTTON : 0,
                   MAKELPARAM(area.right / 2, area.bottom / 2));
}

// A program asks the keyboard for Ctrl, which no message turns on: the key is typed.
void Win32Windows::PostControl(WindowHandle window, char letter) {
    Focus(window);
    INPUT keys[4]{};
    for (std::size_t i = 0; i < 4; ++i) {
        keys[i].type = INPUT_KEYBOARD;
        keys[i].ki.wVk = i == 0 || i == 3 ? VK_CONTROL : static_cast<WORD>(letter);
        keys[i].ki.dwFlags = i >= 2 ? KEYEVENTF_KEYUP : 0;
    }
    ::SendInput(4, keys, sizeof keys[0]);
}

// A hot key's number is its place in the list.
void Win32Windows::HoldKeys(const std::vector<int>& keys) {
    for (std::size_t i = 0; i < held_.size(); ++i)
        ::UnregisterHotKey(nullptr, static_cast<int>(i));
    held_ = keys;
    for (std::size_t i = 0; i < held_.size(); ++i)
        ::RegisterHotKey(nullptr, static_cast<int>(i), 0, static_cast<UINT>(held_[i]));
}

void Win32Windows::HotKey(std::uintptr_t wParam) {
    if (wParam >= held_.size()) return;
    if (onKey) onKey(held_[wParam]);
    if (onKeyUp) onKeyUp(held_[wParam]); // nothing tells of it
}

void Win32Windows::LookForChanges() {
    std::vector<WindowHandle> now;
    for (const ForeignWindow& window : List())
        now.push_back(window.handle);
    if (std::exchange(known_, now) != now && onChange) onChange();
    std::vector<WindowHandle> gone;
    std::erase_if(adopted_, [&](const auto& item) {
        if (Exists(item.first)) return false;
        gone.push_back(item.first);
        return true;
    });
    for (const WindowHandle window : gone)
        if (onGone) onGone(window);
}

} // namespace vk
