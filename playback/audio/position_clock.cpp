#include "playback/audio/position_clock.h"

#include "core/time_of_day.h"

#include <algorithm>
#include <cmath>

namespace vk {

void PositionClock::SetPosition(double seconds) {
    if (!suspended_) dPosition = seconds;
}

void PositionClock::NewTrack() {
    Forget();
    dLength = 0;
}

void PositionClock::Refresh(bool paused) {
    if (paused) return Forget();
    if (!Known() || dLength <= dPosition || bResync || ClockWasSet()) return Synchronise();
    // At midnight the timer value falls to 0 and the position turns negative: the next second asks
    // the player process again.
    const auto now = static_cast<float>(clock_.Now().SecondsOfDay());
    SetPosition(std::nearbyint(now - static_cast<float>(dStartTime)));
}

double PositionClock::ClockAhead() const {
    return clock_.Now().SecondsOfDay() - static_cast<double>(clock_.TickMs()) / 1000;
}

// By a satellite, the network or the driver, or to summer time; midnight is no such thing.
bool PositionClock::ClockWasSet() const {
    constexpr double Day = 24 * 60 * 60, Tolerance = 0.5;
    return std::abs(std::remainder(ClockAhead() - ahead_, Day)) > Tolerance;
}

void PositionClock::Synchronise() {
    ahead_ = ClockAhead();
    dStartTime = clock_.Now().SecondsOfDay();
    // A process that has stopped or gone answers 0 as well, which is no position.
    const std::int32_t position = winamp_.WinAMP_GetTrackPosition();
    SetPosition(winamp_.WinAMP_GetStatus() == "0" ? -1 : position);
    dStartTime -= dPosition;
    dLength = static_cast<double>(winamp_.WinAMP_GetTrackLength()) - 1;
}

std::string PositionClock::TrackTime(bool elapsed) const {
    const double gone = std::max(0.0, dPosition); // far below 0 in the second after midnight
    const double left = dLength - gone;
    if (left <= 0 && dLength <= 0) return "TrackTime: -:--";
    return "TrackTime: " + SetTimeFormat(std::lround(elapsed ? gone : left));
}

} // namespace vk
