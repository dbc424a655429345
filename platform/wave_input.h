// Sound from the card's input, as buffers of samples.
#pragma once

#include <cstdint>
#include <functional>
#include <span>

namespace vk {

/// The default recording device: 11025 samples a second, one channel, 16 bits.
class WaveInput {
  public:
    static constexpr unsigned SampleRate = 11025;
    static constexpr unsigned BufferSamples = 512; ///< about 46 ms
    /// Gets each full buffer, on a thread of the adapter. Samples are valid during the call only.
    using OnBuffer = std::function<void(std::span<const std::int16_t>)>;

    virtual ~WaveInput() = default;
    /// Opens the device and starts a ring of buffers; false when it cannot be opened.
    virtual bool Start(OnBuffer onBuffer) = 0;
    /// Stops and closes it: no buffer comes after this returns. May be called when nothing runs.
    virtual void Stop() = 0;
    virtual bool Running() const = 0;
};

} // namespace vk
