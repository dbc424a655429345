// Tuning the FM radio: steps, seeking, and what is received.
#pragma once

#include "core/base.h"
#include "tuners/fm/radio.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vk {

/// What a seek is doing.
enum SeekState : std::int32_t {
    SeekIdle = 0,
    SeekUp = 1,
    SeekDown = 2,
    SeekHolds = 3 ///< on what it has found, or after a step by hand
};

class FMTuner {
  public:
    /// Who shows what is received; both may be empty.
    struct Listener {
        std::function<void()> frequency = {}; ///< it is another one
        std::function<void(bool stereo)> stereo = {};
    };
    /// All of it outlives the tuner.
    FMTuner(Base& base, LoadRadio load);

    /// Turns it on, tuned to `frequency` (MHz); false when there is no tuner.
    bool TurnOn(double frequency);
    void TurnOff();
    bool On() const { return on_; }
    /// MHz, two decimals.
    double Frequency() const { return frequency_; }
    /// Tunes to a frequency within the limits of the settings, as a preset does.
    void Tune(double frequency);
    /// A step of `frequencyincr`, round and round within the limits; nothing while it is off.
    void FineTuneUp();
    void FineTuneDown();
    /// Begins a seek, or ends the one that runs or holds.
    void ToggleSeek(SeekState direction);
    /// Keeps a seek from starting for 2 seconds.
    void Hold();
    SeekState State() const { return seekState_; }
    /// Every 100 ms while its screen is in front.
    void Tick();
    /// What the tuner calls itself, and "" while there is none; looks for its library.
    std::string Name();

    Listener listener;

  private:
    class Use;
    Radio* Library();
    bool Set(Radio& radio);
    void Step(int direction, double from);
    void FineTune(int direction);
    void SeekStep();
    void Found(bool stereo);
    void Settled();
    void ShowStereo(bool stereo);
    double Seconds() const;
    void NotThere(const std::string& why);

    Base& base_;
    LoadRadio load_;
    std::unique_ptr<Radio> radio_;
    std::unique_ptr<Timer> settle_; ///< the tuner settles on a frequency; no step meanwhile
    double frequency_ = 0;
    SeekState seekState_ = SeekIdle;
    double seekHoldTime_ = 0; ///< whole seconds of the day
    bool on_ = false;
    bool told_ = false; ///< that it does not answer
};

/// "96.50": as frequencies are shown and saved as presets.
std::string FrequencyText(double frequency);

} // namespace vk
