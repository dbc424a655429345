// Where a track is between the output's reports, which come about four times a second.
#pragma once

#include <algorithm>
#include <cstdint>

namespace vk {

/// All values in milliseconds; `now` is any clock that does not go back.
class TrackClock {
  public:
    void Set(std::int64_t position, std::int64_t now) {
        base_ = position;
        since_ = now;
    }
    /// Lets the position run on or stand still.
    void Run(bool on, std::int64_t now) {
        Set(At(now), now);
        running_ = on;
    }
    /// The position; it stops a second after the last report, as a stuck output's does.
    std::int64_t At(std::int64_t now) const {
        return running_ ? base_ + std::clamp<std::int64_t>(now - since_, 0, LongestGap) : base_;
    }

  private:
    static constexpr std::int64_t LongestGap = 1000;
    std::int64_t base_ = 0;
    std::int64_t since_ = 0;
    bool running_ = false;
};

} // namespace vk
