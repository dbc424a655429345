// A small picture that a page draws by itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace vk {

/// Pixels line by line, 0xRRGGBB in the low bytes; 0 in the highest byte is transparent, 255 is
/// not.
struct PagePicture {
    PagePicture() = default;
    PagePicture(int wide, int high) : width(wide), height(high), pixels(Count(wide, high)) {}
    std::uint32_t& At(int x, int y) {
        return pixels[Count(width, y) + static_cast<std::size_t>(x)];
    }
    std::uint32_t At(int x, int y) const {
        return pixels[Count(width, y) + static_cast<std::size_t>(x)];
    }
    void Clear() { pixels.assign(pixels.size(), 0); }

    int width = 0, height = 0;
    std::vector<std::uint32_t> pixels;

  private:
    static std::size_t Count(int wide, int high) {
        return static_cast<std::size_t>(wide) * static_cast<std::size_t>(high);
    }
};

/// A corner of a polygon, in pixels.
struct PicturePoint {
    double x = 0, y = 0;
};

/// Fills the convex polygon: a pixel belongs to it when its middle does. What lies outside of the
/// picture is left out.
void Polygon(PagePicture& picture, const std::vector<PicturePoint>& corners, std::uint32_t colour);

} // namespace vk
