#include "navigation/navit/map_point.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

namespace vk {

namespace {

constexpr double Radius = 6371000, Degree = std::numbers::pi / 180;
// Mercator has no poles.
constexpr double MostLatitude = 85;

} // namespace

MapPoint MapPointOf(const GeoPosition& position) {
    const double latitude = std::clamp(position.latitude, -MostLatitude, MostLatitude) * Degree;
    const double longitude = std::clamp(position.longitude, -180.0, 180.0) * Degree;
    return {static_cast<std::int32_t>(std::lround(longitude * Radius)),
            static_cast<std::int32_t>(
                std::lround(std::log(std::tan(std::numbers::pi / 4 + latitude / 2)) * Radius))};
}

std::optional<GeoPosition> ParsePosition(std::string_view text) {
    GeoPosition position;
    const char* const end = text.data() + text.size();
    const auto [space, one] = std::from_chars(text.data(), end, position.longitude);
    if (one != std::errc() || space == end || *space != ' ') return std::nullopt;
    const auto [last, other] = std::from_chars(space + 1, end, position.latitude);
    const bool whole = other == std::errc() && last == end;
    return whole && position != GeoPosition{} ? std::optional(position) : std::nullopt;
}

// The projection stretches both directions by the cosine of the latitude.
double MetresBetween(MapPoint one, MapPoint other) {
    const double stretch = std::cosh((one.y / 2.0 + other.y / 2.0) / Radius);
    return std::hypot(static_cast<double>(one.x) - other.x, static_cast<double>(one.y) - other.y) /
           stretch;
}

} // namespace vk
