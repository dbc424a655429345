#include "platform/windows/winmm_mixer.h"

#include <windows.h>

namespace vk {

static_assert(static_cast<DWORD>(MixerLine::Master) == MIXERLINE_COMPONENTTYPE_DST_SPEAKERS);
static_assert(static_cast<DWORD>(MixerLine::Line) == MIXERLINE_COMPONENTTYPE_SRC_LINE);
static_assert(static_cast<DWORD>(MixerLine::Mic) == MIXERLINE_COMPONENTTYPE_SRC_MICROPHONE);
static_assert(static_cast<DWORD>(MixerLine::Synth) == MIXERLINE_COMPONENTTYPE_SRC_SYNTHESIZER);
static_assert(static_cast<DWORD>(MixerLine::CD) == MIXERLINE_COMPONENTTYPE_SRC_COMPACTDISC);
static_assert(static_cast<DWORD>(MixerLine::Wave) == MIXERLINE_COMPONENTTYPE_SRC_WAVEOUT);
static_assert(static_cast<DWORD>(MixerControlType::Volume) == MIXERCONTROL_CONTROLTYPE_VOLUME);
static_assert(static_cast<DWORD>(MixerControlType::Mute) == MIXERCONTROL_CONTROLTYPE_MUTE);
static_assert(static_cast<DWORD>(MixerControlType::PeakMeter) ==
              MIXERCONTROL_CONTROLTYPE_PEAKMETER);

struct WinmmMixer::Handle {
    explicit Handle(HMIXER opened) : mixer(opened) {}
    ~Handle() { ::mixerClose(mixer); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    const HMIXER mixer;
    HMIXEROBJ Object() const { return reinterpret_cast<HMIXEROBJ>(mixer); }
};

namespace {

constexpr std::uint64_t RetryMs = 3000;

/// One channel of one control, and the number in it.
struct Details {
    explicit Details(const MixerControl& control) {
        details.cbStruct = sizeof details;
        details.dwControlID = control.id;
        details.cChannels = 1;
        details.cbDetails = sizeof value;
        details.paDetails = &value;
    }
    Details(const Details&) = delete;
    Details& operator=(const Details&) = delete;

    LONG value = 0;
    MIXERCONTROLDETAILS details{};
};

// Control ids of a card count from 0, and 0 is none here.
MixerControl OnCard(const MixerControl& control) {
    return {control.id - 1, control.minimum, control.maximum};
}

} // namespace

WinmmMixer::WinmmMixer() {
    Open();
}

WinmmMixer::~WinmmMixer() = default;

// The handle of before stays until the new one is there: there may be no second card.
bool WinmmMixer::Open() {
    Look();
    return handle_ != nullptr;
}

void WinmmMixer::Look() const {
    lookedAt_ = ::GetTickCount64();
    HMIXER mixer = nullptr;
    const bool opened = ::mixerGetNumDevs() > 0 &&
                        ::mixerOpen(&mixer, 0, 0, 0, MIXER_OBJECTF_MIXER) == MMSYSERR_NOERROR;
    const bool was = handle_ != nullptr;
    handle_ = opened ? std::make_unique<Handle>(mixer) : nullptr;
    if (was != opened) ++session_;
}

unsigned WinmmMixer::Session() const {
    if (!handle_ && ::GetTickCount64() - lookedAt_ >= RetryMs) Look();
    return session_;
}

void WinmmMixer::Check(unsigned result) const {
    if (result != MMSYSERR_INVALHANDLE && result != MMSYSERR_NODRIVER) return;
    handle_.reset();
    ++session_;
    lookedAt_ = ::GetTickCount64();
}

bool WinmmMixer::GetLineControl(MixerLine line, MixerControlType type, MixerControl& control) {
    if (!handle_) return false;
    MIXERLINEA info{};
    info.cbStruct = sizeof info;
    info.dwComponentType = static_cast<DWORD>(line);
    if (::mixerGetLineInfoA(handle_->Object(), &info, MIXER_GETLINEINFOF_COMPONENTTYPE) !=
        MMSYSERR_NOERROR)
        return false;
    MIXERCONTROLA found{};
    MIXERLINECONTROLSA query{};
    query.cbStruct = sizeof query;
    query.dwLineID = info.dwLineID;
    query.dwControlType = static_cast<DWORD>(type);
    query.cControls = 1;
    query.cbmxctrl = sizeof found;
    query.pamxctrl = &found;
    if (::mixerGetLineControlsA(handle_->Object(), &query, MIXER_GETLINECONTROLSF_ONEBYTYPE) !=
        MMSYSERR_NOERROR)
        return false;
    control = {found.dwControlID + 1, found.Bounds.lMinimum, found.Bounds.lMaximum};
    return true;
}

std::int32_t WinmmMixer::GetControlDetails(const MixerControl& control) const {
    if (!handle_ || control.id == 0) return 0;
    Details read(OnCard(control));
    Check(::mixerGetControlDetailsA(handle_->Object(), &read.details,
                                    MIXER_GETCONTROLDETAILSF_VALUE));
    return read.value;
}

void WinmmMixer::SetControlDetails(const MixerControl& control, std::int32_t value) {
    if (!handle_ || control.id == 0) return;
    Details write(OnCard(control));
    write.value = value;
    Check(::mixerSetControlDetails(handle_->Object(), &write.details,
                                   MIXER_SETCONTROLDETAILSF_VALUE));
}

} // namespace vk
