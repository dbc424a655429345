// The latest sound, from the thread that hears it to the one that draws it.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <span>

namespace vk {

/// What is heard is one channel at this rate, samples from -1 to 1.
inline constexpr int SoundRate = 48000;

class SoundRing {
  public:
    static constexpr std::size_t Size = 8192; ///< samples kept

    /// Two channels, sample by sample; their mean is kept.
    void Write(std::span<const std::int16_t> stereo);
    /// The newest samples, oldest first; silence when nothing was written for a fifth of a second.
    void Latest(std::span<float> samples) const;

  private:
    using Clock = std::chrono::steady_clock;

    mutable std::mutex mutex_;
    std::array<float, Size> samples_{};
    std::size_t next_ = 0; ///< where the next one goes
    Clock::time_point writtenAt_{};
};

} // namespace vk
