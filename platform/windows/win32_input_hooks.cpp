#include "platform/windows/win32_input_hooks.h"

#include <windows.h>

#include <utility>

namespace vk {

namespace {

// A hook procedure gets nothing that would tell whose it is.
Win32InputHooks* current = nullptr;

LRESULT CALLBACK OnKey(int code, WPARAM message, LPARAM data) {
    const auto* key = reinterpret_cast<const KBDLLHOOKSTRUCT*>(data);
    if (code == HC_ACTION && current && current->Key(static_cast<unsigned>(message), key->vkCode))
        return 1;
    return ::CallNextHookEx(nullptr, code, message, data);
}

LRESULT CALLBACK OnMouse(int code, WPARAM message, LPARAM data) {
    const auto* mouse = reinterpret_cast<const MSLLHOOKSTRUCT*>(data);
    if (code == HC_ACTION && current &&
        current->Mouse(static_cast<unsigned>(message), mouse->mouseData, mouse->pt.x, mouse->pt.y))
        return 1;
    return ::CallNextHookEx(nullptr, code, message, data);
}

void Unhook(void*& hook) {
    if (hook) ::UnhookWindowsHookEx(static_cast<HHOOK>(std::exchange(hook, nullptr)));
}

} // namespace

Win32InputHooks::~Win32InputHooks() {
    Unhook(keyboard_);
    Unhook(mouse_);
    if (current == this) current = nullptr;
}

void Win32InputHooks::HookKeyboard() {
    current = this;
    if (!keyboard_)
        keyboard_ = ::SetWindowsHookExA(WH_KEYBOARD_LL, OnKey, ::GetModuleHandleA(nullptr), 0);
}

void Win32InputHooks::UnhookKeyboard() {
    Unhook(keyboard_);
}

void Win32InputHooks::HookMouse() {
    current = this;
    if (!mouse_) mouse_ = ::SetWindowsHookExA(WH_MOUSE_LL, OnMouse, ::GetModuleHandleA(nullptr), 0);
}

void Win32InputHooks::UnhookMouse() {
    Unhook(mouse_);
}

bool Win32InputHooks::Key(unsigned message, unsigned long key) {
    const bool down = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    ::PostMessageA(reinterpret_cast<HWND>(host_), down ? WM_KEYDOWN : WM_KEYUP, key, down ? 1 : 0);
    return true;
}

// A move shows nothing and is let through, or the pointer would stand still.
bool Win32InputHooks::Mouse(unsigned message, unsigned long data, long x, long y) {
    if (message == WM_MOUSEWHEEL)
        ::PostMessageA(reinterpret_cast<HWND>(host_), message, data & 0xFFFF0000u,
                       MAKELPARAM(x, y));
    if (message == WM_LBUTTONDOWN && onTouch) onTouch();
    return message != WM_MOUSEMOVE;
}

} // namespace vk
