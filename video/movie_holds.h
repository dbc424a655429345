// The buttons of the films' bar that act while they are held: a step of the film or of the loudness
// at a tap, and more of them meanwhile.
#pragma once

#include "core/base.h"
#include "playback/audio/held_buttons.h"

#include <cstdint>
#include <functional>
#include <utility>

namespace vk {

class MovieHolds {
  public:
    /// Of one press of forward and rewind, and of each step while they are held; seconds.
    static constexpr int StepSeconds = 10, HeldSeconds = 30;

    /// What they do.
    struct Actions {
        std::function<void(int seconds)> skip; ///< negative ones back
        std::function<void(bool up)> turn;     ///< the loudness
    };
    /// `base` outlives this object.
    MovieHolds(Base& base, Actions actions) : base_(base), actions_(std::move(actions)) {}

    void Press(HeldAction action) { held_.Press(action); }
    /// Let go; outside of its button it was no tap.
    void Release(bool inside);
    /// The screen goes under the finger.
    void LetGo() { held_.Press(HeldNone); }
    /// The tick of that number of the second, 100 ms each.
    void Tick(int number);
    bool Any() const { return held_.Action() != HeldNone; }
    bool TurnsVolume() const {
        return held_.Action() == HeldVolUp || held_.Action() == HeldVolDown;
    }

  private:
    void Do(HeldAction action, int seconds);
    std::int32_t RepeatAfter() const { return base_.settings.values.TSRepeatVal; }

    Base& base_;
    Actions actions_;
    HeldButtons held_;
};

} // namespace vk
