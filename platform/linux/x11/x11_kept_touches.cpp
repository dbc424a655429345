#include "platform/linux/x11/x11_kept_touches.h"

#include <utility>

namespace vk {

namespace {

constexpr std::uint32_t Finger = 1; // the first button

XReply<xcb_query_pointer_reply_t> Pointer(const X11Properties& x) {
    return XReply<xcb_query_pointer_reply_t>(xcb_query_pointer_reply(
        x.connection(), xcb_query_pointer(x.connection(), x.Root()), nullptr));
}

} // namespace

bool X11KeptTouches::Handle(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7F;
    if (type == XCB_BUTTON_PRESS) touched_ = XCB_WINDOW_NONE;
    const auto* extension = xcb_get_extension_data(x_.connection(), &xcb_input_id);
    const auto& input = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    return type == XCB_GE_GENERIC && extension && input.extension == extension->major_opcode &&
           HandleInput(input);
}

// The raw event comes before the one that a window gets. That of a device below the pointer comes
// to its window all the same, and is nothing that a window acts on.
bool X11KeptTouches::HandleInput(const xcb_ge_generic_event_t& event) {
    const auto& input = reinterpret_cast<const xcb_input_button_press_event_t&>(event);
    const bool finger = input.detail == Finger; // as in a raw event
    switch (event.event_type) {
    case XCB_INPUT_BUTTON_PRESS:
    case XCB_INPUT_TOUCH_BEGIN:
        if (input.deviceid != input.sourceid) touched_ = XCB_WINDOW_NONE;
        return false;
    case XCB_INPUT_RAW_BUTTON_PRESS:
        if (finger) Down();
        return true;
    case XCB_INPUT_RAW_BUTTON_RELEASE:
        if (finger) Up();
        return true;
    default:
        return false;
    }
}

void X11KeptTouches::Down() {
    const auto at = Pointer(x_);
    touched_ = at ? at->child : xcb_window_t{XCB_WINDOW_NONE};
}

void X11KeptTouches::Up() {
    const xcb_window_t touched = std::exchange(touched_, XCB_WINDOW_NONE);
    if (touched == XCB_WINDOW_NONE) return;
    const auto at = Pointer(x_);
    const Tell tell = tell_; // it may be given another by what is told
    if (at && at->child == touched) tell(touched, at->root_x, at->root_y);
}

} // namespace vk
