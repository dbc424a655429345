// How bright the displays were before they were dimmed, in a small file: a crash would leave them
// dark for good.
#pragma once

#include "platform/backlight.h"
#include "platform/gamma.h"

#include <optional>
#include <string>
#include <vector>

namespace vk {

struct FoundLight {
    std::vector<DisplayRamp> ramps;
    std::vector<PanelLight> panels;
};

/// Lines of text: "ramp NAME SIZE" and the red, green and blue values in three lines, "panel NAME
/// LEVEL MOST", and an "end" that a torn file lacks. Not flushed: a power cut resets the displays,
/// and to wait for the disk would be seen.
bool WriteFoundLight(const std::string& file, const FoundLight& found);
/// Nothing for a file that is missing, torn or foreign.
std::optional<FoundLight> ReadFoundLight(const std::string& file);

} // namespace vk
