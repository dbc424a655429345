#include "platform/linux/x11/x11_focus.h"

namespace vk {

namespace {

constexpr std::uint32_t FromPager = 2; // EWMH: on the user's behalf

// ICCCM 4.1.2.4: the first field tells that the second is there. A manager gives such a window as a
// clock's no input, and goes on showing above it what has that.
bool TakesInput(const X11Properties& x, xcb_window_t window) {
    constexpr std::uint32_t InputHint = 1;
    const auto hints = x.Numbers(window, "WM_HINTS");
    return hints.size() < 2 || (hints[0] & InputHint) == 0 || hints[1] != 0;
}

} // namespace

// With the display's own time: one of an event may be older than the last change, and a display
// does not hear of those.
void GiveInput(const X11Properties& x, xcb_window_t window, bool managed) {
    if (managed) x.Tell(window, "_NET_ACTIVE_WINDOW", {FromPager, XCB_CURRENT_TIME, 0}, true);
    if (!managed || !TakesInput(x, window))
        xcb_set_input_focus(x.connection(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(x.connection());
}

// Nothing tells who has them but a try.
bool KeyboardTaken(const X11Properties& x) {
    xcb_connection_t* const c = x.connection();
    const auto asked = xcb_grab_keyboard(c, 0, x.Root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC,
                                         XCB_GRAB_MODE_ASYNC);
    const XReply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(c, asked, nullptr));
    if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS) xcb_ungrab_keyboard(c, XCB_CURRENT_TIME);
    xcb_flush(c);
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

bool PointerTaken(const X11Properties& x) {
    xcb_connection_t* const c = x.connection();
    const auto asked = xcb_grab_pointer(c, 0, x.Root(), 0, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC,
                                        XCB_WINDOW_NONE, XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    const XReply<xcb_grab_pointer_reply_t> reply(xcb_grab_pointer_reply(c, asked, nullptr));
    if (reply && reply->status == XCB_GRAB_STATUS_SUCCESS) xcb_ungrab_pointer(c, XCB_CURRENT_TIME);
    xcb_flush(c);
    return reply && reply->status == XCB_GRAB_STATUS_ALREADY_GRABBED;
}

} // namespace vk
