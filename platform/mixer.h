// The sound card's mixer, as a device of lines (where sound comes in or goes out), each with
// controls. Numbers are those of the Windows mixer interface; other adapters give them the same
// meaning.
#pragma once

#include <cstdint>

namespace vk {

/// A line, by its component type.
enum class MixerLine : std::uint32_t {
    Master = 4, ///< what the speakers get
    Line = 0x1002,
    Mic = 0x1003,
    Synth = 0x1004,
    CD = 0x1005,
    Wave = 0x1008
};

/// A control of a line, by its control type.
enum class MixerControlType : std::uint32_t {
    PeakMeter = 0x10020001,
    Mute = 0x20010002,
    Volume = 0x50030001
};

/// A control as the card told of it. Id 0 is a control that the card lacks.
struct MixerControl {
    std::uint32_t id = 0;
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
};

/// The first sound card. It may come and go while the system runs: controls are to be looked up
/// again whenever `Session` has changed.
class Mixer {
  public:
    virtual ~Mixer() = default;
    /// False when there is no sound card now.
    virtual bool Open() = 0;
    /// Changes each time the card comes or goes.
    virtual unsigned Session() const = 0;
    /// Finds a control; false, and `control` is left alone, when the card lacks it.
    virtual bool GetLineControl(MixerLine line, MixerControlType type, MixerControl& control) = 0;
    /// Value of a control in the card's units, a mute as 0 or 1; 0 for one that is not there.
    virtual std::int32_t GetControlDetails(const MixerControl& control) const = 0;
    /// Sets it; `value` lies between minimum and maximum. Nothing happens where it is not there.
    virtual void SetControlDetails(const MixerControl& control, std::int32_t value) = 0;
};

} // namespace vk
