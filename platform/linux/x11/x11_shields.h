// Windows without a picture over adopted ones: what would go to those comes to the host instead.
#pragma once

#include "platform/foreign_windows.h"
#include "platform/linux/x11/x11_properties.h"

#include <map>

namespace vk {

/// A key goes to the window below the pointer, as long as that is a part of the one that has the
/// focus; a program whose window was touched once would have the keyboard from then on.
class X11Shields {
  public:
    /// `x` outlives this object.
    explicit X11Shields(const X11Properties& x) : x_(x) {}
    ~X11Shields();

    void Put(xcb_window_t window, xcb_window_t host, const WindowArea& area);
    /// The window has gone, or is not ours any more.
    void Drop(xcb_window_t window);
    // As its window, and nothing for one without a shield.
    void Place(xcb_window_t window, const WindowArea& area) const;
    void Show(xcb_window_t window, bool shown) const;
    void Raise(xcb_window_t window) const;

  private:
    xcb_window_t Of(xcb_window_t window) const;

    const X11Properties& x_;
    std::map<xcb_window_t, xcb_window_t> shields_;
};

} // namespace vk
