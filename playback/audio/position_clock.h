// Where the current track is: a stopwatch that asks the player process only when it has to, since
// every question is a message to another process.
#pragma once

#include "platform/clock.h"
#include "playback/c_winamp.h"

#include <string>

namespace vk {

/// Times are seconds; the timer value is the number of seconds since midnight.
class PositionClock {
  public:
    /// `suspended` is the process's own flag: while it is set the position stands still.
    PositionClock(cWinamp& winamp, const Clock& clock, const bool& suspended)
        : winamp_(winamp), clock_(clock), suspended_(suspended) {}

    /// The position is unknown; the next `Refresh` asks for it.
    void Forget() { SetPosition(-1); }
    /// Another track: position and length are unknown.
    void NewTrack();
    /// From the first step on the position is asked for every second, for good.
    void Stepped() { bResync = true; }
    /// Once a second. Events run inside while the length is not known.
    void Refresh(bool paused);

    /// -1 when unknown.
    double Position() const { return dPosition; }
    bool Known() const { return dPosition >= 0; }
    /// "TrackTime: 1:05", the time gone or left; "TrackTime: -:--" when there is nothing to tell.
    std::string TrackTime(bool elapsed) const;

  private:
    void SetPosition(double seconds);
    void Synchronise();
    double ClockAhead() const;
    bool ClockWasSet() const;

    cWinamp& winamp_;
    const Clock& clock_;
    const bool& suspended_;
    double dPosition = -1;
    double dLength = 0;    ///< one less than the player process says
    double dStartTime = 0; ///< timer value at which the track would have started
    double ahead_ = 0;     ///< of the steady clock, when it was asked last
    bool bResync = false;
};

} // namespace vk
