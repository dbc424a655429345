// Time, timers and waiting: nothing in the system asks the machine for time but through this port.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace vk {

/// A local wall-clock moment. Months and days count from 1, `weekday` from 0 (Sunday).
struct DateTime {
    int year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
    int weekday = 6;

    /// Seconds since midnight with a fraction, the "timer value" of the player screen.
    double SecondsOfDay() const {
        return hour * 3600.0 + minute * 60.0 + second + millisecond / 1000.0;
    }
    /// Whole minutes since midnight, 0 to 1439.
    int MinuteOfDay() const { return hour * 60 + minute; }
};

/// A repeating timer that lives on the user-interface thread. Destroying it stops it.
class Timer {
  public:
    virtual ~Timer() = default;
    /// Fires every `intervalMs` milliseconds (at least 1) from now on; restarts a running timer.
    virtual void Start(int intervalMs) = 0;
    virtual void Stop() = 0;
    virtual bool Enabled() const = 0;
};

/// The machine's clock. The adapter is on Qt; tests use a clock that runs only when told.
class Clock {
  public:
    virtual ~Clock() = default;
    /// Local wall-clock time; it may jump.
    virtual DateTime Now() const = 0;
    /// Milliseconds from an arbitrary start, never going back.
    virtual std::int64_t TickMs() const = 0;
    /// Waits without running events: only where a screen is meant to stand still.
    virtual void Sleep(int milliseconds) = 0;
    /// Runs the events that are pending now (timers that are due included); when there are none,
    /// those that come first within `waitMs` milliseconds. Called by the pump alone.
    virtual void DoEvents(int waitMs) = 0;
    /// A stopped timer that calls `onTick` while it is enabled.
    virtual std::unique_ptr<Timer> MakeTimer(std::function<void()> onTick) = 0;
};

} // namespace vk
