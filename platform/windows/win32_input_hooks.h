// The input of the whole screen by low-level hooks of user32.
#pragma once

#include "platform/input_hooks.h"
#include "platform/player_window.h"

namespace vk {

/// One a process; its thread runs the message loop, which the hooks are called in.
class Win32InputHooks : public InputHooks {
  public:
    ~Win32InputHooks() override;
    /// The system's own top-level window, which gets the keys and the wheel.
    void SetHost(WindowHandle host) { host_ = host; }

    void HookKeyboard() override;
    void UnhookKeyboard() override;
    void HookMouse() override;
    void UnhookMouse() override;

    /// For the hook procedures: the key or the event of the mouse, true when it is used up.
    bool Key(unsigned message, unsigned long key);
    bool Mouse(unsigned message, unsigned long data, long x, long y);

  private:
    WindowHandle host_ = 0;
    void *keyboard_ = nullptr, *mouse_ = nullptr; ///< HHOOK
};

} // namespace vk
