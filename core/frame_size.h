// The sizes that the interface can be laid out for.
#pragma once

#include <array>
#include <cstdint>

namespace vk {

/// Pixels.
struct FrameSize {
    std::int32_t width = 0, height = 0;
};

/// Of panels, by the numbers of AppSize from 1 on; 0 is the display's.
inline constexpr std::array<FrameSize, 5> PanelFrames = {
    {{640, 480}, {720, 400}, {800, 400}, {800, 600}, {1024, 768}}};
/// The number for AppSizeCustomX by AppSizeCustomY.
inline constexpr std::int32_t CustomFrame = 6;

} // namespace vk
