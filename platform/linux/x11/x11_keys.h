// Keys of an X11 keyboard by their virtual-key codes.
#pragma once

#include <xcb/xcb.h>

#include <map>
#include <vector>

namespace vk {

/// The key codes of the display that these virtual keys lie on, with their virtual keys; one that
/// the keyboard lacks is left out.
std::map<xcb_keycode_t, int> KeyCodes(xcb_connection_t* connection, const std::vector<int>& keys);

} // namespace vk
