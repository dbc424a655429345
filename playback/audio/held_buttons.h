// What a held touch button or list strip does, tick by tick of 100 ms.
#pragma once

#include <cstdint>

namespace vk {

/// Codes of `RepeatAction`; 5 and 6 are those of the list's scroll events.
enum HeldAction : std::int32_t {
    HeldNone = 0,
    HeldVolUp = 1,
    HeldVolDown = 2,
    HeldForward = 3,
    HeldRewind = 4,
    HeldScrollUp = 5,
    HeldScrollDown = 6
};

class HeldButtons {
  public:
    void Press(HeldAction action);
    /// What this tick is to do, `HeldNone` while it waits: the volume moves from the first tick on;
    /// forward and rewind wait until they were held for `repeatAfter` ticks (`TSRepeatVal`, less
    /// than 1 counts as 1); the list scrolls at once and then waits likewise.
    HeldAction Tick(std::int32_t repeatAfter);
    /// Ends the press. True when it was too short for what holding does, thus a click.
    bool Release(std::int32_t repeatAfter);
    HeldAction Action() const { return RepeatAction; }

  private:
    HeldAction RepeatAction = HeldNone;
    std::int32_t RepeatCount = 0; ///< ticks that the button has been held
};

} // namespace vk
