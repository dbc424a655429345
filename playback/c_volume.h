// The sound card's lines: every change of loudness in the system goes through here, none through
// the player process.
#pragma once

#include "core/error_report.h"
#include "platform/dialogs.h"
#include "platform/mixer.h"
#include "platform/wave_input.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <utility>

namespace vk {

/// One object for the run. Levels are in the card's own units, and the caller stays in range; a
/// line that the card lacks reads as 0, as every line does while there is no card. A failure within
/// a property is reported under its name.
class cVolume {
  public:
    struct Needs {
        Mixer& mixer;
        WaveInput& input;
        Dialogs& dialogs;
        ErrorReport& report;
    };
    /// Opens the card and looks up its controls.
    explicit cVolume(Needs needs) : n_(needs) { Class_Initialize(); }
    ~cVolume() { Class_Terminate(); }
    cVolume(const cVolume&) = delete;
    cVolume& operator=(const cVolume&) = delete;

    /// Shows what went wrong with the card at the start, once a run and only while it is still so.
    /// Apart from the start, since a driver who is not there could not answer: sound comes first.
    void ShowHardwareProblem();

    std::int32_t VolumeMin() { return Minimum(MixerLine::Master, "VolumeMin"); }
    std::int32_t MicMin() { return Minimum(MixerLine::Mic, "MicMin"); }
    std::int32_t LineMin() { return Minimum(MixerLine::Line, "LineMin"); }
    std::int32_t CDMin() { return Minimum(MixerLine::CD, "CDMin"); }
    std::int32_t WaveMin() { return Minimum(MixerLine::Wave, "WaveMin"); }
    std::int32_t SynMin() { return Minimum(MixerLine::Synth, "SynMin"); }
    std::int32_t VolumeMax() { return Maximum(MixerLine::Master, "VolumeMax"); }
    std::int32_t MicMax() { return Maximum(MixerLine::Mic, "MicMax"); }
    std::int32_t LineMax() { return Maximum(MixerLine::Line, "LineMax"); }
    std::int32_t CDMax() { return Maximum(MixerLine::CD, "CDMax"); }
    std::int32_t SynMax() { return Maximum(MixerLine::Synth, "SynMax"); }
    std::int32_t WaveMax() { return Maximum(MixerLine::Wave, "WaveMax"); }

    std::int32_t VolumeLevel() { return Level(MixerLine::Master, "VolumeLevel"); }
    std::int32_t MicLevel() { return Level(MixerLine::Mic, "MicLevel"); }
    std::int32_t LineLevel() { return Level(MixerLine::Line, "LineLevel"); }
    std::int32_t SynLevel() { return Level(MixerLine::Synth, "SynLevel"); }
    std::int32_t WaveLevel() { return Level(MixerLine::Wave, "WaveLevel"); }
    std::int32_t CDLevel() { return Level(MixerLine::CD, "CDLevel"); }
    void VolumeLevel(std::int32_t level) { Level(MixerLine::Master, "VolumeLevel", level); }
    void MicLevel(std::int32_t level) { Level(MixerLine::Mic, "MicLevel", level); }
    void LineLevel(std::int32_t level) { Level(MixerLine::Line, "LineLevel", level); }
    void SynLevel(std::int32_t level) { Level(MixerLine::Synth, "SynLevel", level); }
    void WaveLevel(std::int32_t level) { Level(MixerLine::Wave, "WaveLevel", level); }
    void CDLevel(std::int32_t level) { Level(MixerLine::CD, "CDLevel", level); }

    bool VolumeMute() { return Mute(MixerLine::Master, "VolumeMute"); }
    bool MikrofonMute() { return Mute(MixerLine::Mic, "MikrofonMute"); }
    bool LineMute() { return Mute(MixerLine::Line, "LineMute"); }
    bool CompactDiscMute() { return Mute(MixerLine::CD, "CompactDiscMute"); }
    bool SynthesizerMute() { return Mute(MixerLine::Synth, "SynthesizerMute"); }
    bool WaveMute() { return Mute(MixerLine::Wave, "WaveMute"); }
    void VolumeMute(bool on) { Mute(MixerLine::Master, "VolumeMute", on); }
    void MikrofonMute(bool on) { Mute(MixerLine::Mic, "MikrofonMute", on); }
    void LineMute(bool on) { Mute(MixerLine::Line, "LineMute", on); }
    void CompactDiscMute(bool on) { Mute(MixerLine::CD, "CompactDiscMute", on); }
    void SynthesizerMute(bool on) { Mute(MixerLine::Synth, "SynthesizerMute", on); }
    void WaveMute(bool on) { Mute(MixerLine::Wave, "WaveMute", on); }

    /// The input's meter is the peak of the latest buffer, 0 to 32767; reading it starts the input.
    std::int32_t MaxVolumeMeterInput() const { return MeterPeak; }
    std::int32_t MinVolumeMeterInput() const { return 0; }
    std::int32_t CurrentVolumeMeterInput();
    /// The output's is the card's own, and reads 0 on one without.
    std::int32_t MaxVolumeMeterOutput();
    std::int32_t MinVolumeMeterOutput();
    std::int32_t CurrentVolumeMeterOutput();

    void StartInput();
    void StopInput();
    /// Takes a full buffer of the input; called on the input's own thread.
    void waveInProc(std::span<const std::int16_t> samples);

  private:
    static constexpr std::int32_t MeterPeak = 32767;

    void Class_Initialize();
    void Class_Terminate() { StopInput(); }
    void LookUpControls();
    bool GetVolumeControl(Mixer& mixer, MixerLine component, MixerControlType type,
                          MixerControl& control);
    void SetVolumeControl(Mixer& mixer, const MixerControl& control, std::int32_t value);
    std::int32_t Wert(MixerLine component, MixerControlType type);
    bool GetMute(MixerLine component);
    void SetMute(MixerLine component, bool on);
    const MixerControl& Control(MixerLine component, MixerControlType type);
    std::int32_t Minimum(MixerLine line, const char* name);
    std::int32_t Maximum(MixerLine line, const char* name);
    std::int32_t Level(MixerLine line, const char* name);
    void Level(MixerLine line, const char* name, std::int32_t level);
    bool Mute(MixerLine line, const char* name);
    void Mute(MixerLine line, const char* name, bool on);
    template<class Read> std::int32_t Meter(const char* name, Read read);

    Needs n_;
    std::map<std::pair<MixerLine, MixerControlType>, MixerControl> controls_;
    unsigned session_ = 0; ///< of the mixer, when the controls were looked up
    std::string problem_;  ///< what to tell the user, and the title behind the application's
    std::string problemTitle_;
    std::atomic<std::int32_t> peak_ = 0;
};

} // namespace vk
