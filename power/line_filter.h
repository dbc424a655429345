// From a line that may bounce to the states of the ignition.
#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vk {

/// Off counts at once, or, with a crank filter, when it has lasted: the starter pulls the line low
/// for a moment. On counts at once after a rest; a line that flaps is off until it is steady, so
/// that nothing plays in shreds.
class LineFilter {
  public:
    static constexpr int SteadyMs = 250;

    /// `clock` outlives this object.
    LineFilter(Clock& clock, std::function<void(bool on)> tell)
        : clock_(clock), tell_(std::move(tell)), timer_(clock.MakeTimer([this] { Settled(); })) {}

    /// How long the line has to be low to count; milliseconds, 0 for at once.
    void SetCrankMs(int milliseconds) { crankMs_ = milliseconds; }
    /// The line is so now, and was told so.
    void Begin(bool high);
    void Changed(bool high);
    void Stop() { timer_->Stop(); }

  private:
    void Settled();

    Clock& clock_;
    std::function<void(bool)> tell_;
    std::unique_ptr<Timer> timer_;
    int crankMs_ = 0;
    std::int64_t changedMs_ = 0;
    bool high_ = true, told_ = true;
};

} // namespace vk
