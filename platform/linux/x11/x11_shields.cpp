#include "platform/linux/x11/x11_shields.h"

#include <algorithm>

namespace vk {

X11Shields::~X11Shields() {
    while (!shields_.empty())
        Drop(shields_.begin()->first);
}

xcb_window_t X11Shields::Of(xcb_window_t window) const {
    const auto shield = shields_.find(window);
    return shield == shields_.end() ? xcb_window_t{XCB_WINDOW_NONE} : shield->second;
}

// It asks for no events, so that all of them go on to the host.
void X11Shields::Put(xcb_window_t window, xcb_window_t host, const WindowArea& area) {
    Drop(window);
    const xcb_window_t shield = xcb_generate_id(x_.connection());
    xcb_create_window(x_.connection(), XCB_COPY_FROM_PARENT, shield, host, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    shields_[window] = shield;
    Place(window, area);
    Show(window, true);
}

void X11Shields::Drop(xcb_window_t window) {
    if (const xcb_window_t shield = Of(window)) xcb_destroy_window(x_.connection(), shield);
    shields_.erase(window);
}

void X11Shields::Place(xcb_window_t window, const WindowArea& area) const {
    const xcb_window_t shield = Of(window);
    if (shield == XCB_WINDOW_NONE) return;
    const std::uint32_t values[] = {static_cast<std::uint32_t>(area.x),
                                    static_cast<std::uint32_t>(area.y),
                                    static_cast<std::uint32_t>(std::max(1, area.width)),
                                    static_cast<std::uint32_t>(std::max(1, area.height))};
    xcb_configure_window(x_.connection(), shield,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values);
}

void X11Shields::Show(xcb_window_t window, bool shown) const {
    const xcb_window_t shield = Of(window);
    if (shield == XCB_WINDOW_NONE) return;
    shown ? xcb_map_window(x_.connection(), shield) : xcb_unmap_window(x_.connection(), shield);
    Raise(window);
}

void X11Shields::Raise(xcb_window_t window) const {
    const xcb_window_t shield = Of(window);
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    if (shield != XCB_WINDOW_NONE)
        xcb_configure_window(x_.connection(), shield, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

} // namespace vk
