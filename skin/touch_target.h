// How large what is touched has to be.
#pragma once

namespace vk {

/// The least width and height of it, in pixels of a screen that is so high: 12 mm on a panel of 7
/// inches with 800x480, whatever its resolution.
constexpr int TouchSide(int screenHeight) {
    return (screenHeight * 63 + 479) / 480;
}

} // namespace vk
