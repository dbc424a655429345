// The menu's own icons.
#pragma once

#include "skin/skin.h"

#include <vector>

namespace vk {

/// What the menu offers where the skin has no icons: every function, in two rows that are drawn
/// without pictures.
std::vector<MenuIconData> PlainIcons();

} // namespace vk
