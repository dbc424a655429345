// The input of an X11 display given to a window.
#pragma once

#include "platform/linux/x11/x11_properties.h"

namespace vk {

/// Now, whichever program has it: by the manager's hand, where one looks after the window. A window
/// that does not look is none of the display's business: nothing happens.
void GiveInput(const X11Properties& x, xcb_window_t window, bool managed);

/// True while another program has all keys for itself, wherever the input is.
bool KeyboardTaken(const X11Properties& x);
/// The same of the pointer; also while a finger lies on another program's window.
bool PointerTaken(const X11Properties& x);

} // namespace vk
