#include "tuners/fm/fm_tuner.h"

#include <cmath>
#include <cstdio>
#include <utility>

namespace vk {

namespace {

constexpr int SettleMs = 130;
constexpr double HoldSeconds = 2, DaySeconds = 24 * 60 * 60;
constexpr double UnitsAMHz = 20; // 50 kHz each

double Rounded(double frequency) {
    return std::round(frequency * 100) / 100;
}

} // namespace

std::string FrequencyText(double frequency) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", frequency);
    return text;
}

/// Opens the tuner for one use of it, and closes it again.
class FMTuner::Use {
  public:
    explicit Use(FMTuner& tuner) : radio_(tuner.Library()) {
        open_ = radio_ && radio_->open_radio();
        if (open_)
            tuner.told_ = false;
        else
            tuner.NotThere("The FM radio does not answer");
    }
    ~Use() {
        if (radio_) radio_->close_radio();
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

    Radio* operator->() const { return radio_; }
    Radio& operator*() const { return *radio_; }
    explicit operator bool() const { return open_; }

  private:
    Radio* radio_;
    bool open_ = false;
};

FMTuner::FMTuner(Base& base, LoadRadio load)
    : base_(base), load_(std::move(load)), settle_(base.clock.MakeTimer([this] { Settled(); })) {}

Radio* FMTuner::Library() {
    std::string reason;
    if (!radio_ && load_) radio_ = load_(reason);
    if (!radio_) NotThere("There is no FM radio: " + reason);
    return radio_.get();
}

void FMTuner::NotThere(const std::string& why) {
    if (!std::exchange(told_, true)) base_.log.WriteDebugLog(why);
}

std::string FMTuner::Name() {
    Radio* radio = Library();
    return radio ? radio->Name() : std::string();
}

bool FMTuner::Set(Radio& radio) {
    return radio.set_freq(static_cast<std::int32_t>(std::lround(frequency_ * UnitsAMHz)));
}

bool FMTuner::TurnOn(double frequency) {
    frequency_ = Rounded(frequency);
    seekState_ = SeekIdle;
    told_ = false; // each change to it may cost a line
    const Use radio(*this);
    on_ = static_cast<bool>(radio);
    if (!on_) return false;
    radio->turn_power(true);
    Set(*radio);
    return true;
}

void FMTuner::TurnOff() {
    if (!std::exchange(on_, false)) return;
    settle_->Stop();
    seekState_ = SeekIdle;
    const Use radio(*this);
    if (radio) radio->turn_power(false);
}

void FMTuner::Tune(double frequency) {
    const Settings& s = base_.settings.values;
    if (!on_ || frequency < s.minfreq || frequency > s.maxfreq) return;
    const Use radio(*this);
    if (!radio) return;
    frequency_ = Rounded(frequency);
    seekState_ = SeekIdle;
    Set(*radio);
    if (listener.frequency) listener.frequency();
}

// Round and round; each step is rounded, so that none adds to the error of the one before.
void FMTuner::Step(int direction, double from) {
    const Settings& s = base_.settings.values;
    frequency_ = Rounded(from + direction * s.frequencyincr);
    if (frequency_ > s.maxfreq) frequency_ = s.minfreq;
    if (frequency_ < s.minfreq) frequency_ = s.maxfreq;
}

void FMTuner::FineTune(int direction) {
    if (!on_) return;
    const Use radio(*this);
    if (!radio) return;
    Step(direction, frequency_);
    Set(*radio);
    if (listener.frequency) listener.frequency();
}

void FMTuner::FineTuneUp() {
    Trap(base_.report, "An error occured in playmp3.FineTuneUp ", [&] { FineTune(1); });
}

void FMTuner::FineTuneDown() {
    Trap(base_.report, "An error occured in playmp3.FineTuneDown ", [&] { FineTune(-1); });
}

void FMTuner::ToggleSeek(SeekState direction) {
    seekState_ = seekState_ == SeekIdle ? direction : SeekIdle;
}

double FMTuner::Seconds() const {
    return std::floor(base_.clock.Now().SecondsOfDay());
}

void FMTuner::Hold() {
    seekState_ = SeekHolds;
    seekHoldTime_ = Seconds();
}

void FMTuner::ShowStereo(bool stereo) {
    if (listener.stereo) listener.stereo(stereo);
}

void FMTuner::Tick() {
    if (!on_ || settle_->Enabled()) return;
    if (seekState_ == SeekUp || seekState_ == SeekDown) return SeekStep();
    const Use radio(*this);
    if (!radio) return ShowStereo(false);
    if (seekState_ == SeekHolds) {
        const double held = Seconds() - seekHoldTime_;
        if (held < HoldSeconds && held >= 0 && held < DaySeconds) return ShowStereo(false);
        seekState_ = SeekIdle; // it is held long enough, or midnight has passed
        seekHoldTime_ = 0;
    }
    ShowStereo(radio->get_stereo());
}

// Upwards the station is judged at once and the tuner settles afterwards; downwards it settles
// first. Events run meanwhile: the wait is the time to the next step.
void FMTuner::SeekStep() {
    const Use radio(*this);
    if (!radio) return ShowStereo(false);
    Step(seekState_ == SeekUp ? 1 : -1, frequency_);
    const bool tuned = Set(*radio);
    if (listener.frequency) listener.frequency();
    if (!tuned) return ShowStereo(false);
    if (seekState_ == SeekUp) Found(radio->get_stereo());
    settle_->Start(SettleMs);
}

void FMTuner::Found(bool stereo) {
    if (stereo) Hold();
    ShowStereo(stereo);
}

void FMTuner::Settled() {
    settle_->Stop();
    if (!on_ || seekState_ != SeekDown) return;
    const Use radio(*this);
    if (radio) Found(radio->get_stereo());
}

} // namespace vk
