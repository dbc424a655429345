// An FM tuner without a device, and a route of sound that goes nowhere.
#pragma once

#include "platform/sound_route.h"
#include "tuners/fm/radio.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace vk::test {

/// Answers only while it is open; everything else is a fault of the caller, and counted.
class FakeRadio : public Radio {
  public:
    bool open_radio() override {
        wrong += open ? 1 : 0;
        return open = there;
    }
    void close_radio() override { open = false; }
    void turn_power(bool now) override {
        wrong += open ? 0 : 1;
        on = now;
        if (onPower) onPower();
    }
    bool set_freq(std::int32_t units) override {
        wrong += open ? 0 : 1;
        if (!there || units == refused) return false;
        sent.push_back(units);
        return true;
    }
    bool get_stereo() override {
        wrong += open ? 0 : 1;
        return there && on && !sent.empty() && stereo.contains(sent.back());
    }
    std::string Name() const override { return "Fake radio"; }

    bool there = true, open = false, on = false;
    int wrong = 0;            ///< calls in a wrong order
    std::int32_t refused = 0; ///< a frequency that cannot be tuned
    std::set<std::int32_t> stereo;
    std::function<void()> onPower;  ///< runs as it is turned on or off
    std::vector<std::int32_t> sent; ///< frequencies, in units of 50 kHz
};

/// The system's own end of one.
class RadioLink : public Radio {
  public:
    explicit RadioLink(FakeRadio& radio) : radio_(radio) {}
    bool open_radio() override { return radio_.open_radio(); }
    void close_radio() override { radio_.close_radio(); }
    void turn_power(bool on) override { radio_.turn_power(on); }
    bool set_freq(std::int32_t units) override { return radio_.set_freq(units); }
    bool get_stereo() override { return radio_.get_stereo(); }
    std::string Name() const override { return radio_.Name(); }

  private:
    FakeRadio& radio_;
};

class FakeSoundRoute : public SoundRoute {
  public:
    std::vector<CaptureDevice> Devices() override { return {{"plughw:CARD=Radio", "USB Radio"}}; }
    void Start(const std::string& device) override { from = device; }
    void Stop() override { from.clear(); }
    bool Running() const override { return !from.empty(); }

    std::string from; ///< the device that is heard, "" for none
};

} // namespace vk::test
