// The way back into the list of the last run.
#pragma once

#include "core/settings.h"
#include "platform/volumes.h"
#include "playback/audio_state.h"

namespace vk {

/// What is shown when there is no list to resume.
inline constexpr const char* NothingToResume = "You must first play an audio file before resuming.";

/// The list of the last run, in the application directory.
inline constexpr const char* AudioListName = "vk_audio.m3u";

/// There is a list of the last run.
bool HasListToResume(const SettingsStore& settings);

enum class ResumeResult {
    Ready,      ///< the state asks the player screen for the list, its track and its position
    NoList,     ///< nothing was played yet; the state is untouched
    DiscMissing ///< the list lies on a disc that is not in the drive; the state is untouched
};

/// Reads what the player saved last and asks for it in `audio`. With `DoResume` off the track
/// starts at its beginning.
ResumeResult PrepareResume(SettingsStore& settings, const Volumes& volumes, AudioState& audio);

} // namespace vk
