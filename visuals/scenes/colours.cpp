#include "visuals/scenes/colours.h"

#include <cmath>
#include <iterator>

namespace vk {

namespace {

constexpr Pixel Scale[] = {Rgb(38, 214, 222), Rgb(58, 140, 255), Rgb(132, 92, 255),
                           Rgb(228, 84, 190), Rgb(255, 128, 112)};
constexpr Pixel GroundTop = Rgb(5, 7, 14), GroundBottom = Rgb(13, 20, 36);

} // namespace

Pixel ScaleColour(double at) {
    constexpr auto Last = static_cast<double>(std::size(Scale) - 1);
    const double place = std::clamp(at, 0.0, 1.0) * Last;
    const double from = std::min(std::floor(place), Last - 1);
    const auto index = static_cast<std::size_t>(from);
    return Mix(Scale[index], Scale[index + 1], static_cast<unsigned>((place - from) * 256));
}

Pixel GroundColour(double at) {
    return Mix(GroundTop, GroundBottom, static_cast<unsigned>(std::clamp(at, 0.0, 1.0) * 256));
}

void DrawGround(const Canvas& canvas) {
    for (int y = 0; y < canvas.height; ++y)
        std::fill_n(canvas.Line(y), canvas.width,
                    GroundColour(static_cast<double>(y) / canvas.height));
}

} // namespace vk
