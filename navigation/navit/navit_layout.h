// How the map looks, by day and by night.
#pragma once

#include <string>

namespace vk {

constexpr const char* DayLayout = "Car";
constexpr const char* NightLayout = "Car-dark";

/// Both layouts, as elements of the engine's configuration. Texts and lines are as large as suits a
/// screen of 480 lines, times `percent`.
std::string NavitLayouts(int percent = 100);

} // namespace vk
