// The player's buttons and list strips that act while they are held.
#pragma once

#include "core/base.h"
#include "playback/audio/held_buttons.h"
#include "playback/audio/player_view.h"

#include <functional>

namespace vk {

class PlayerButtons {
  public:
    /// What they do.
    struct Actions {
        std::function<void(HeldAction)> hold;  ///< a tick of holding, or a tap
        std::function<void(bool ahead)> click; ///< a press of forward or rewind too short to hold
    };
    /// `base` and `view` outlive this object.
    PlayerButtons(Base& base, PlayerView& view, Actions actions)
        : base_(base), view_(view), actions_(std::move(actions)) {}

    void Press(HeldAction action);
    /// Let go, whatever else runs; outside of a button that waits for its hold, it was no click.
    void Release(bool inside = true);
    /// The screen goes under the finger.
    void LetGo();
    /// Every 100 ms.
    void Tick();
    bool TurnsVolume() const;

  private:
    Base& base_;
    PlayerView& view_;
    Actions actions_;
    HeldButtons held_;
};

} // namespace vk
