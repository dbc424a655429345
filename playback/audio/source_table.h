// The order in which one button goes through the sources.
#pragma once

#include "playback/audio_state.h"

#include <cstdint>

namespace vk {

/// The tuners that the settings have enabled.
struct Tuners {
    bool fm = false;
    bool xm = false;
    bool xmFirst = false; ///< of two, the satellite receiver comes first (`FirstRadioType` 1)
};

/// The source after `mode`; `PlayNone` when there is none.
PlayModeValue NextSource(std::int32_t mode, const Tuners& tuners);

/// The picture that stands for a source on the button; the player's own when there is none.
const char* SourcePicture(PlayModeValue mode);

} // namespace vk
