// What each mode of the browser takes into a folder's list.
#pragma once

#include "library/tags/media_type.h"

#include <cstdint>
#include <string>

namespace vk {

/// True when the mode lists media of that type. Types that the browser cannot open in any mode are
/// in none.
bool ModeAccepts(std::int16_t listMode, int mediaType);

/// True for a file that the mode accepts and that holds at least one byte.
bool IsShowable(const MediaExtensions& extensions, std::int16_t listMode, const std::string& path);

} // namespace vk
