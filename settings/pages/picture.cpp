#include "settings/pages/picture.h"

#include <algorithm>
#include <cmath>

namespace vk {

namespace {

constexpr std::uint32_t Opaque = 0xFF000000;
// Neighbours meet without a gap, however their edge was rounded.
constexpr double Seam = 1e-6;
constexpr double FarAway = 1e6; // pixels: nobody sees a difference, and an int holds it

// What the line at `y` cuts out of the polygon, from left to right; the second is less when it
// misses.
std::pair<double, double> Cut(const std::vector<PicturePoint>& corners, double y) {
    double left = FarAway, right = -FarAway;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const PicturePoint &a = corners[i], &b = corners[(i + 1) % corners.size()];
        if ((a.y <= y) == (b.y <= y)) continue;
        const double x = a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y);
        left = std::min(left, x);
        right = std::max(right, x);
    }
    return {std::clamp(left, -FarAway, FarAway), std::clamp(right, -FarAway, FarAway)};
}

} // namespace

void Polygon(PagePicture& picture, const std::vector<PicturePoint>& corners, std::uint32_t colour) {
    for (int y = 0; y < picture.height; ++y) {
        const auto [left, right] = Cut(corners, y + 0.5);
        const int first = std::max(0, static_cast<int>(std::ceil(left - 0.5 - Seam)));
        const int end = std::min(picture.width, static_cast<int>(std::ceil(right - 0.5 + Seam)));
        for (int x = first; x < end; ++x)
            picture.At(x, y) = colour | Opaque;
    }
}

} // namespace vk
