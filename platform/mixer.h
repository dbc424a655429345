// The sound card's lines. Where there is no mixer the screens hold none and volume keys do nothing.
#pragma once

#include <cstdint>

namespace vk {

enum class MixerLine { Master, Mic, Line, CD, Synth, Wave };

class Mixer {
  public:
    virtual ~Mixer() = default;
    /// Bounds and level of a line in the card's own units; 0 for a line that the card lacks.
    virtual std::int32_t Min(MixerLine line) const = 0;
    virtual std::int32_t Max(MixerLine line) const = 0;
    virtual std::int32_t Level(MixerLine line) const = 0;
    virtual void SetLevel(MixerLine line, std::int32_t level) = 0;
    virtual bool Mute(MixerLine line) const = 0;
    virtual void SetMute(MixerLine line, bool on) = 0;
};

} // namespace vk
