// The system's own window among the others.
#pragma once

namespace vk {

class WindowLayer {
  public:
    virtual ~WindowLayer() = default;
    /// Brings the system's window to the front and gives it the input, restoring it when iconic;
    /// does nothing when it is in front already.
    virtual void ForceForegroundWindow() = 0;
    /// Keeps the window above all others, or lets it go again.
    virtual void SetTopmost(bool on) = 0;
    /// Shows or hides the mouse pointer over the system's window.
    virtual void ShowCursor(bool shown) = 0;
};

} // namespace vk
