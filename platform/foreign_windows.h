// Windows of other programs: found, taken into ours, placed and given the input.
#pragma once

#include "platform/player_window.h"
#include "platform/programs.h"

#include <functional>
#include <string>
#include <vector>

namespace vk {

/// Pixels of the screen, or of the window that it lies in.
struct WindowArea {
    int x = 0, y = 0;
    int width = 0, height = 0;
    bool operator==(const WindowArea&) const = default;
};

struct ForeignWindow {
    WindowHandle handle = 0;
    ProgramId program = 0; ///< whose it is; 0 where it does not tell
    std::string title = {}, windowClass = {};
    bool visible = false; ///< or minimised
    bool ordinary = true; ///< a window of its own, that can be minimised: no dialog, menu or splash
    WindowArea area = {}; ///< without the frame; pixels of the screen
};

/// All on the user-interface thread, and none waits for the other program. A window that has gone
/// is no failure: what is asked of it does nothing.
class ForeignWindows {
  public:
    virtual ~ForeignWindows() = default;
    /// The top-level windows of the screen, the one in front last; adopted ones are none of them.
    virtual std::vector<ForeignWindow> List() const = 0;
    virtual bool Exists(WindowHandle window) const = 0;
    /// Makes it a part of our window `host`, shown at `area` in there and without a frame. It is
    /// the desktop's again after `Return`, and when this process ends, however that comes. False
    /// when one of both is not there.
    virtual bool Adopt(WindowHandle window, WindowHandle host, const WindowArea& area) = 0;
    virtual void Return(WindowHandle window) = 0;
    /// Keys and touches of an adopted window come to its host from now on.
    virtual void Shield(WindowHandle window) = 0;
    virtual void Place(WindowHandle window, const WindowArea& area) = 0;
    virtual void Show(WindowHandle window, bool shown) = 0;
    /// In front of its siblings; a minimised one is shown again.
    virtual void Raise(WindowHandle window) = 0;
    /// Keeps it above all others, or lets it go again; where nobody manages the windows it is
    /// raised once.
    virtual void SetTopmost(WindowHandle window, bool on) = 0;
    /// As large as the desktop lets it be, where somebody manages the windows; else nothing.
    virtual void Maximize(WindowHandle window) = 0;
    /// With or without title bar and frame.
    virtual void SetFrame(WindowHandle window, bool on) = 0;
    /// Gives it the input.
    virtual void Focus(WindowHandle window) = 0;
    /// Asks its program to close it.
    virtual void Close(WindowHandle window) = 0;
    /// The first window in it, at any depth, of that class and title; 0 when there is none.
    virtual WindowHandle Inside(WindowHandle window, const std::string& windowClass,
                                const std::string& title) const = 0;
    /// Posts it a press of the left mouse button in its middle, or the end of one.
    virtual void PostMouse(WindowHandle window, bool down) = 0;
    /// Posts it a letter (A to Z), typed with Ctrl.
    virtual void PostControl(WindowHandle window, char letter) = 0;
    /// From now on these keys (virtual-key codes) come to `onKey` instead of the program in front,
    /// and none with an empty list. Keys that another program holds stay with it; one that has all
    /// for itself gets these, too, and they are told when they are let go.
    virtual void HoldKeys(const std::vector<int>& keys) = 0;
    /// Minimises a window while its program has all keys or all touches for itself, which ends
    /// that.
    virtual void FreeInput(WindowHandle window) = 0;

    /// A held key went down; or was let go.
    std::function<void(int key)> onKey, onKeyUp;
    /// A touch on a window that its program was kept from by one that has all touches for itself:
    /// its place on the screen. Told while keys are held.
    std::function<void(WindowHandle window, int x, int y)> onKeptTouch;
    /// Windows have come or gone, or may have.
    std::function<void()> onChange;
    /// An adopted window has gone, with its program or without.
    std::function<void(WindowHandle window)> onGone;
};

/// Those of `List` that belong to a program.
inline std::vector<ForeignWindow> WindowsOf(const ForeignWindows& windows, ProgramId program) {
    std::vector<ForeignWindow> all = windows.List();
    std::erase_if(all, [&](const ForeignWindow& window) { return window.program != program; });
    return all;
}

} // namespace vk
