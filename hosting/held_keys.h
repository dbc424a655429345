// The keys that lead back while another program has the keyboard.
#pragma once

#include "input/key_map.h"

#include <vector>

namespace vk {

/// Virtual-key codes: quit, and of the other keys that the map knows those that type nothing and
/// move nothing, as programs have no use for them (function and media keys).
std::vector<int> KeysHeldBack(const KeyMap& keys);

} // namespace vk
