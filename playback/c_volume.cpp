#include "playback/c_volume.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

namespace vk {

namespace {

constexpr std::array Lines = {MixerLine::Master, MixerLine::Mic,   MixerLine::Line,
                              MixerLine::CD,     MixerLine::Synth, MixerLine::Wave};

std::string ErrorIn(const char* name) {
    return std::string("An error occured in cVolume.") + name + " ";
}

} // namespace

void cVolume::Class_Initialize() {
    if (!n_.mixer.Open()) {
        problem_ = "No sound card detected.  You must install a sound card.";
        problemTitle_ = "Hardware Problem";
        n_.report.Log("No Sound Card Detected  : You Must install a sound card");
        return;
    }
    LookUpControls();
    // Once more for the meters.
    if (n_.mixer.Open()) return;
    problem_ = "Unable to open the requested device.";
    problemTitle_ = "Velkorandum - Mixercontrol Failure";
}

void cVolume::ShowHardwareProblem() {
    const std::string text = std::exchange(problem_, {});
    // A card that came late is no problem any more.
    if (text.empty() || n_.mixer.Open()) return;
    n_.dialogs.ShowMessage(text, problemTitle_, MessageKind::Critical);
}

// Controls ---------------------------------------------------------------------------------------

void cVolume::LookUpControls() {
    session_ = n_.mixer.Session();
    controls_.clear();
    for (const MixerControlType type : {MixerControlType::Volume, MixerControlType::Mute})
        for (const MixerLine line : Lines)
            GetVolumeControl(n_.mixer, line, type, controls_[{line, type}]);
}

bool cVolume::GetVolumeControl(Mixer& mixer, MixerLine component, MixerControlType type,
                               MixerControl& control) {
    return mixer.GetLineControl(component, type, control);
}

void cVolume::SetVolumeControl(Mixer& mixer, const MixerControl& control, std::int32_t value) {
    mixer.SetControlDetails(control, value);
}

const MixerControl& cVolume::Control(MixerLine component, MixerControlType type) {
    if (session_ != n_.mixer.Session()) LookUpControls();
    return controls_[{component, type}];
}

std::int32_t cVolume::Wert(MixerLine component, MixerControlType type) {
    const MixerControl& control = Control(component, type);
    return control.id == 0 ? 0 : n_.mixer.GetControlDetails(control);
}

bool cVolume::GetMute(MixerLine component) {
    return Wert(component, MixerControlType::Mute) != 0;
}

void cVolume::SetMute(MixerLine component, bool on) {
    SetVolumeControl(n_.mixer, Control(component, MixerControlType::Mute), on ? 1 : 0);
}

// Properties -------------------------------------------------------------------------------------

std::int32_t cVolume::Minimum(MixerLine line, const char* name) {
    return Trap(n_.report, ErrorIn(name), 0,
                [&] { return Control(line, MixerControlType::Volume).minimum; });
}

std::int32_t cVolume::Maximum(MixerLine line, const char* name) {
    return Trap(n_.report, ErrorIn(name), 0,
                [&] { return Control(line, MixerControlType::Volume).maximum; });
}

std::int32_t cVolume::Level(MixerLine line, const char* name) {
    return Trap(n_.report, ErrorIn(name), 0, [&] { return Wert(line, MixerControlType::Volume); });
}

void cVolume::Level(MixerLine line, const char* name, std::int32_t level) {
    Trap(n_.report, ErrorIn(name),
         [&] { SetVolumeControl(n_.mixer, Control(line, MixerControlType::Volume), level); });
}

bool cVolume::Mute(MixerLine line, const char* name) {
    return Trap(n_.report, ErrorIn(name), false, [&] { return GetMute(line); });
}

void cVolume::Mute(MixerLine line, const char* name, bool on) {
    Trap(n_.report, ErrorIn(name), [&] { SetMute(line, on); });
}

// Meters -----------------------------------------------------------------------------------------

template<class Read> std::int32_t cVolume::Meter(const char* name, Read read) {
    return Trap(n_.report, ErrorIn(name), 0, [&] {
        MixerControl meter;
        const bool found =
            GetVolumeControl(n_.mixer, MixerLine::Master, MixerControlType::PeakMeter, meter);
        return found ? read(meter) : 0;
    });
}

std::int32_t cVolume::MaxVolumeMeterOutput() {
    return Meter("MaxVolumeMeterOutput", [](const MixerControl& meter) { return meter.maximum; });
}

std::int32_t cVolume::MinVolumeMeterOutput() {
    return Meter("MinVolumeMeterOutput", [](const MixerControl& meter) { return meter.minimum; });
}

std::int32_t cVolume::CurrentVolumeMeterOutput() {
    return Meter("CurrentVolumeMeterOutput",
                 [this](const MixerControl& meter) { return n_.mixer.GetControlDetails(meter); });
}

std::int32_t cVolume::CurrentVolumeMeterInput() {
    if (!n_.input.Running()) StartInput();
    return peak_;
}

void cVolume::StartInput() {
    Trap(n_.report, ErrorIn("StartInput"), [this] {
        peak_ = 0;
        n_.input.Start([this](std::span<const std::int16_t> samples) { waveInProc(samples); });
    });
}

void cVolume::StopInput() {
    Trap(n_.report, ErrorIn("StopInput"), [this] { n_.input.Stop(); });
}

void cVolume::waveInProc(std::span<const std::int16_t> samples) {
    std::int32_t peak = 0;
    for (const std::int32_t sample : samples)
        peak = std::max(peak, std::min(std::abs(sample), MeterPeak));
    peak_ = peak;
}

} // namespace vk
