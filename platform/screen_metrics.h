// The real screen.
#pragma once

namespace vk {

/// Size in pixels and density of the screen that the system runs on.
struct ScreenMetrics {
    int width = 800;
    int height = 480;
    int dpiX = 96; ///< 0 when the device does not say
    int dpiY = 96;
};

} // namespace vk
