// The input of the whole screen, whichever program has the window in front.
#pragma once

#include <functional>

namespace vk {

/// Each hook stays until it is taken out, at the latest with this object. One that the display does
/// not grant at once, as another program holds the input just now, is tried again for two seconds.
class InputHooks {
  public:
    virtual ~InputHooks() = default;
    /// From now on every key comes to our own window, and none to another program.
    virtual void HookKeyboard() = 0;
    virtual void UnhookKeyboard() = 0;
    /// From now on a touch anywhere is told by `onTouch` and does nothing else; the wheel comes to
    /// our own window. The pointer is out of sight.
    virtual void HookMouse() = 0;
    virtual void UnhookMouse() = 0;

    /// The screen was touched; for each touch once.
    std::function<void()> onTouch;
};

} // namespace vk
