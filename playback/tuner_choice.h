// Which tuner is the radio, and what the player is asked for to play it.
#pragma once

#include "core/settings.h"
#include "playback/audio_state.h"

#include <cstdint>

namespace vk {

/// The tuner that a radio button starts: of two, FM unless `firstRadioType` is 1; `PlayNone` when
/// none is enabled.
PlayModeValue FirstTuner(const Settings& settings, std::int32_t firstRadioType);

/// Puts the list and the title that the tuner was left with into the state.
void TakeTunerList(PlayModeValue tuner, SettingsStore& settings, AudioState& audio);

/// Asks the player for the tuner, as another screen does before it shows the player.
void ChooseTuner(PlayModeValue tuner, SettingsStore& settings, AudioState& audio);

} // namespace vk
