// Silence on the sound card's line of a tuner while the tuner is started, tuned or stopped.
#pragma once

#include "playback/c_volume.h"

#include <cstdint>
#include <map>

namespace vk {

/// `input` is the key `audio_input` of a tuner: 1 Line, 2 CD, 3 Mic, 4 the master line. With any
/// other number nothing happens.
class LineMute {
  public:
    explicit LineMute(cVolume& volume) : volume_(volume) {}

    /// Mutes the line; its mute of before is kept until it is put back. The master's never is.
    void MuteLine(std::int32_t input);
    /// Takes the mute off Line, CD or Mic; the master line is left to the user.
    void UnMuteLine(std::int32_t input);
    /// Puts back what `MuteLine` kept, for Line, CD or Mic.
    void RestoreMuteState(std::int32_t input);

  private:
    cVolume& volume_;
    std::map<std::int32_t, bool> SavedLineMute; ///< by input
};

} // namespace vk
