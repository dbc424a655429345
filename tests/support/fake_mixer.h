// A sound card as a test wants it.
#pragma once

#include "platform/mixer.h"
#include "platform/wave_input.h"

#include <map>
#include <stdexcept>
#include <utility>

namespace vk::test {

/// Every line goes from 0 to its maximum and keeps what it is set to.
class FakeMixer : public Mixer {
  public:
    bool Open() override {
        ++opens;
        return present && opens != refusedOpen;
    }
    unsigned Session() const override { return session; }
    bool GetLineControl(MixerLine line, MixerControlType type, MixerControl& control) override {
        if (!present || (type == MixerControlType::Mute && !mutes)) return false;
        control = {Id(line, type), 0, line == MixerLine::Wave ? waveMaximum : maximum};
        return true;
    }
    std::int32_t GetControlDetails(const MixerControl& control) const override {
        if (broken) throw std::runtime_error("wire cut");
        return values.contains(control.id) ? values.at(control.id) : 0;
    }
    void SetControlDetails(const MixerControl& control, std::int32_t value) override {
        if (broken) throw std::runtime_error("wire cut");
        if (control.id != 0) values[control.id] = value;
    }

    /// It is pulled, or there is one; `scale` is that of all lines but the wave.
    void Change(bool there, std::int32_t scale = 1000) {
        present = there;
        maximum = scale;
        ++session;
    }
    std::int32_t& Level(MixerLine line) { return values[Id(line, MixerControlType::Volume)]; }
    std::int32_t& Mute(MixerLine line) { return values[Id(line, MixerControlType::Mute)]; }

    bool present = true, broken = false;
    bool mutes = true;   ///< the card has them
    int refusedOpen = 0; ///< the number of the one open that fails, from 1
    int opens = 0;
    unsigned session = 1;
    std::int32_t maximum = 1000, waveMaximum = 1000;

  private:
    static std::uint32_t Id(MixerLine line, MixerControlType type) {
        return static_cast<std::uint32_t>(line) * 16 + static_cast<std::uint32_t>(type) % 16;
    }
    std::map<std::uint32_t, std::int32_t> values;
};

/// An input that hears nothing.
class FakeWaveInput : public WaveInput {
  public:
    bool Start(OnBuffer) override { return true; }
    void Stop() override {}
    bool Running() const override { return false; }
};

} // namespace vk::test
