// Keys of Qt under the virtual-key codes that the key maps hold.
#pragma once

#include <QKeyEvent>

#include <string>

namespace vk {

/// The decimal text of the Windows virtual-key code (winuser.h), with "%" in front of another
/// key while Alt is held. Letters work under any layout of the keyboard. Keys that Windows does not
/// number have codes from 256 on; "" for what is no key.
std::string VirtualKeyText(const QKeyEvent& event);

/// The code alone; 0 for none. Letters and digits are their ASCII codes, whatever the layout's
/// shift state.
int VirtualKey(int qtKey, Qt::KeyboardModifiers modifiers);

} // namespace vk
