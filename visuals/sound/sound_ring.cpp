#include "visuals/sound/sound_ring.h"

#include <algorithm>

namespace vk {

namespace {

constexpr auto Patience = std::chrono::milliseconds(200);
constexpr float Scale = 1.0f / 65536.0f; // of the sum of two channels

} // namespace

void SoundRing::Write(std::span<const std::int16_t> stereo) {
    const std::lock_guard lock(mutex_);
    for (std::size_t i = 0; i + 1 < stereo.size(); i += 2) {
        samples_[next_] = Scale * static_cast<float>(stereo[i] + stereo[i + 1]);
        next_ = (next_ + 1) % Size;
    }
    writtenAt_ = Clock::now();
}

void SoundRing::Latest(std::span<float> samples) const {
    const std::lock_guard lock(mutex_);
    if (Clock::now() - writtenAt_ > Patience) {
        std::ranges::fill(samples, 0.0f);
        return;
    }
    const std::size_t count = std::min(samples.size(), Size);
    std::size_t at = (next_ + Size - count) % Size;
    for (std::size_t i = 0; i < count; ++i, at = (at + 1) % Size)
        samples[i] = samples_[at];
}

} // namespace vk
