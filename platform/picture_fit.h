// How large something of a shape is shown.
#pragma once

#include <algorithm>
#include <cmath>

namespace vk {

struct PixelSize {
    int width = 0, height = 0;
    bool operator==(const PixelSize&) const = default;
};

/// The largest size of that shape (its width over its height, above 0) that a box takes.
inline PixelSize FitShape(double shape, PixelSize box) {
    const double wide = std::min<double>(box.width, box.height * shape);
    const auto pixels = [](double size) {
        return std::max(1, static_cast<int>(std::lround(size)));
    };
    return {pixels(wide), pixels(wide / shape)};
}

} // namespace vk
