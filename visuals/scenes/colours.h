// The colours that all scenes share.
#pragma once

#include "visuals/scenes/canvas.h"

namespace vk {

/// From left to right or from low to high: `at` 0 is cool, 1 is warm.
Pixel ScaleColour(double at);
/// The dark ground, `at` 0 is the top and 1 the bottom.
Pixel GroundColour(double at);
/// Fills the canvas with the ground.
void DrawGround(const Canvas& canvas);

} // namespace vk
