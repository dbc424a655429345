// The loudness on the player's screen, for a moment in the place of the list's title.
#pragma once

#include "core/base.h"
#include "playback/audio/player_view.h"
#include "playback/loudness.h"

#include <cstdint>
#include <string>

namespace vk {

class VolumeLabel {
  public:
    VolumeLabel(Base& base, Loudness& loudness, PlayerView& view);

    /// The player is entered: a mute that stands is shown again.
    void Enter();
    /// Once a second: hides the text 4 seconds after the last change, unless a volume button is
    /// held.
    void HideWhenOld(bool held);

  private:
    void Show(const std::string& level);

    Base& base_;
    PlayerView& view_;
    Loudness& loudness_;
    LoudnessListener listener_;
    std::int32_t VolumeShownAt = 0; ///< whole seconds of the timer value
    bool shown_ = false;
};

} // namespace vk
