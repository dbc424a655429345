// The engine's places and those of the world.
#pragma once

#include "navigation/navit/navit_bus.h"
#include "platform/navigation_engine.h"

#include <optional>
#include <string_view>

namespace vk {

MapPoint MapPointOf(const GeoPosition& position);
/// "longitude latitude", as the engine tells a place; nothing for anything else, and for
/// no longitude at no latitude, which it says when it knows none.
std::optional<GeoPosition> ParsePosition(std::string_view text);
/// Metres between two places that are not far from each other.
double MetresBetween(MapPoint one, MapPoint other);

} // namespace vk
