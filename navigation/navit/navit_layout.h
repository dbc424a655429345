// How the map looks, by day and by night.
#pragma once

#include <string>

namespace vk {

constexpr const char* DayLayout = "Car";
constexpr const char* NightLayout = "Car-dark";

/// Both layouts, as elements of the engine's configuration.
std::string NavitLayouts();

} // namespace vk
