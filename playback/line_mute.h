// Silence on the sound card's line of a tuner while the tuner is started, tuned or stopped.
#pragma once

#include "playback/c_volume.h"

#include <cstdint>
#include <optional>

namespace vk {

/// `input` is the key `audio_input` of a tuner: 1 Line, 2 CD, 3 Mic, 4 the master line. With any
/// other number nothing happens.
class LineMute {
  public:
    explicit LineMute(cVolume& volume) : volume_(volume) {}

    /// Mutes the line; with `remember`, and the first time, its mute of before is kept. The
    /// master's never is.
    void MuteLine(std::int32_t input, bool remember);
    /// Takes the mute off Line, CD or Mic; the master line is left to the user.
    void UnMuteLine(std::int32_t input);
    /// Puts back what `MuteLine` kept, for Line, CD or Mic.
    void RestoreMuteState(std::int32_t input);

  private:
    cVolume& volume_;
    std::optional<bool> SavedLineMute;
};

} // namespace vk
