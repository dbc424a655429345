// Keys by where they lie on the keyboard, whatever its layout writes there.
#pragma once

#include <cstdint>

namespace vk {

/// The virtual-key code of a typing key: what lies there on an American keyboard. 0 for others.
/// `scanCode` and `virtualKey` are what the window system tells of the key itself.
int KeyAtPlace(std::uint32_t scanCode, std::uint32_t virtualKey);

} // namespace vk
