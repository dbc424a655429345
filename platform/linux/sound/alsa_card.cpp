#include "platform/linux/sound/alsa_card.h"

#include "platform/linux/sound/alsa_quiet.h"

#include <alsa/asoundlib.h>

#include <algorithm>

namespace vk {

namespace {

// Names that cards give to a line, the likeliest first. A card without a master is driven by the
// control that its speakers hang on.
const std::array<std::vector<const char*>, AlsaLineCount> Names = {{
    {"Master", "Speaker", "Headphone", "Digital", "PCM"},
    {"Mic", "Front Mic", "Rear Mic", "Internal Mic"},
    {"Line", "Line In", "Aux"},
    {"CD"},
    {"Synth", "FM", "Music"},
    {"PCM", "Wave"},
}};

constexpr auto Channel = SND_MIXER_SCHN_FRONT_LEFT;

snd_mixer_elem_t* FindElement(snd_mixer_t* mixer, const char* name) {
    snd_mixer_selem_id_t* id = nullptr;
    snd_mixer_selem_id_alloca(&id);
    snd_mixer_selem_id_set_name(id, name);
    return snd_mixer_find_selem(mixer, id);
}

} // namespace

std::size_t AlsaLineIndex(MixerLine line) {
    constexpr std::array order = {MixerLine::Master, MixerLine::Mic,   MixerLine::Line,
                                  MixerLine::CD,     MixerLine::Synth, MixerLine::Wave};
    return static_cast<std::size_t>(std::find(order.begin(), order.end(), line) - order.begin());
}

const char* AlsaLineName(std::size_t line) {
    return Names.at(line).front();
}

void AlsaCard::Close::operator()(_snd_mixer* mixer) const {
    snd_mixer_close(mixer);
}

std::unique_ptr<AlsaCard> AlsaCard::Open(const std::string& device) {
    KeepAlsaQuiet();
    snd_mixer_t* mixer = nullptr;
    if (snd_mixer_open(&mixer, 0) < 0) return nullptr;
    auto card = std::make_unique<AlsaCard>();
    card->mixer_.reset(mixer);
    if (snd_mixer_attach(mixer, device.c_str()) < 0 ||
        snd_mixer_selem_register(mixer, nullptr, nullptr) < 0 || snd_mixer_load(mixer) < 0)
        return nullptr;
    card->FindLines();
    card->FollowForm();
    return card;
}

// An element that goes takes its memory with it, and one that comes may be a line that was missing.
void AlsaCard::FollowForm() {
    snd_mixer_set_callback_private(mixer_.get(), &formChanged_);
    snd_mixer_set_callback(mixer_.get(), [](snd_mixer_t* mixer, unsigned, snd_mixer_elem_t*) {
        *static_cast<bool*>(snd_mixer_get_callback_private(mixer)) = true;
        return 0;
    });
    for (const Element& line : lines_) {
        if (!line.element) continue;
        snd_mixer_elem_set_callback_private(line.element, &formChanged_);
        snd_mixer_elem_set_callback(line.element, [](snd_mixer_elem_t* element, unsigned mask) {
            // A removal has all bits set.
            if (mask & SND_CTL_EVENT_MASK_INFO)
                *static_cast<bool*>(snd_mixer_elem_get_callback_private(element)) = true;
            return 0;
        });
    }
}

void AlsaCard::FindLines() {
    for (std::size_t line = 0; line < AlsaLineCount; ++line)
        for (const char* name : Names[line]) {
            snd_mixer_elem_t* element = FindElement(mixer_.get(), name);
            if (!element) continue;
            lines_[line] = Describe(element);
            if (lines_[line].hasLevel) break;
        }
}

// An input's playback side is what is heard of it; many cards have only the recording side.
AlsaCard::Element AlsaCard::Describe(snd_mixer_elem_t* element) {
    Element found{.element = element};
    const bool playback = snd_mixer_selem_has_playback_volume(element);
    found.hasLevel = playback || snd_mixer_selem_has_capture_volume(element);
    found.levelOfCapture = !playback;
    const bool playbackSwitch = snd_mixer_selem_has_playback_switch(element);
    found.hasMute = playbackSwitch || snd_mixer_selem_has_capture_switch(element);
    found.muteOfCapture = !playbackSwitch;
    if (!found.hasLevel) return found;
    if (playback)
        snd_mixer_selem_get_playback_volume_range(element, &found.minimum, &found.maximum);
    else
        snd_mixer_selem_get_capture_volume_range(element, &found.minimum, &found.maximum);
    return found;
}

AlsaLines AlsaCard::Read() const {
    AlsaLines lines;
    for (std::size_t i = 0; i < AlsaLineCount; ++i) {
        const Element& from = lines_[i];
        AlsaLine& line = lines[i];
        line = {.hasLevel = from.hasLevel,
                .hasMute = from.hasMute,
                .maximum = static_cast<std::int32_t>(from.maximum - from.minimum)};
        long level = from.minimum;
        int on = 1;
        if (from.hasLevel)
            (from.levelOfCapture
                 ? snd_mixer_selem_get_capture_volume
                 : snd_mixer_selem_get_playback_volume)(from.element, Channel, &level);
        if (from.hasMute)
            (from.muteOfCapture ? snd_mixer_selem_get_capture_switch
                                : snd_mixer_selem_get_playback_switch)(from.element, Channel, &on);
        line.level = static_cast<std::int32_t>(level - from.minimum);
        line.muted = on == 0;
    }
    return lines;
}

bool AlsaCard::SetLevel(std::size_t line, std::int32_t level) {
    const Element& to = lines_.at(line);
    if (!to.hasLevel) return true;
    return (to.levelOfCapture ? snd_mixer_selem_set_capture_volume_all
                              : snd_mixer_selem_set_playback_volume_all)(
               to.element, std::clamp(to.minimum + level, to.minimum, to.maximum)) >= 0;
}

bool AlsaCard::SetMute(std::size_t line, bool on) {
    const Element& to = lines_.at(line);
    if (!to.hasMute) return true;
    return (to.muteOfCapture
                ? snd_mixer_selem_set_capture_switch_all
                : snd_mixer_selem_set_playback_switch_all)(to.element, on ? 0 : 1) >= 0;
}

std::vector<pollfd> AlsaCard::Descriptors() const {
    const int count = snd_mixer_poll_descriptors_count(mixer_.get());
    std::vector<pollfd> descriptors(static_cast<std::size_t>(std::max(0, count)));
    snd_mixer_poll_descriptors(mixer_.get(), descriptors.data(),
                               static_cast<unsigned>(descriptors.size()));
    return descriptors;
}

bool AlsaCard::HandleEvents() {
    return snd_mixer_handle_events(mixer_.get()) >= 0 && !formChanged_;
}

} // namespace vk
