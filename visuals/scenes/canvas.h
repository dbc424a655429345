// What the scenes draw on: pixels in memory, 0xFFRRGGBB.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vk {

using Pixel = std::uint32_t;

constexpr Pixel Rgb(unsigned red, unsigned green, unsigned blue) {
    return 0xFF000000u | red << 16 | green << 8 | blue;
}

/// `share` of 256 of the way from one colour to another.
constexpr Pixel Mix(Pixel from, Pixel to, unsigned share) {
    const Pixel keep = 256 - share;
    const Pixel redBlue = ((from & 0xFF00FF) * keep + (to & 0xFF00FF) * share) >> 8 & 0xFF00FF;
    const Pixel green = ((from & 0xFF00) * keep + (to & 0xFF00) * share) >> 8 & 0xFF00;
    return 0xFF000000u | redBlue | green;
}

/// The lighter of two colours, channel by channel.
constexpr Pixel Lighter(Pixel a, Pixel b) {
    return 0xFF000000u | std::max(a & 0xFF0000, b & 0xFF0000) | std::max(a & 0xFF00, b & 0xFF00) |
           std::max(a & 0xFF, b & 0xFF);
}

/// Somebody else's pixels.
struct Canvas {
    Pixel* pixels = nullptr;
    int width = 0, height = 0;
    std::ptrdiff_t stride = 0; ///< pixels from one line to the next

    Pixel* Line(int y) const { return pixels + y * stride; }
};

/// Its own, line by line without gaps. Those of a text are multiplied by their opacity.
struct Bitmap {
    Bitmap() = default;
    Bitmap(int wide, int high)
        : width(wide), height(high),
          pixels(static_cast<std::size_t>(wide) * static_cast<std::size_t>(high)) {}
    Pixel* Line(int y) { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
    const Pixel* Line(int y) const {
        return pixels.data() + static_cast<std::ptrdiff_t>(y) * width;
    }

    int width = 0, height = 0;
    std::vector<Pixel> pixels;
};

/// Pixels of a canvas.
struct Area {
    int x = 0, y = 0, width = 0, height = 0;
};

} // namespace vk
