#include "playback/line_mute.h"

namespace vk {

namespace {

constexpr std::int32_t MasterInput = 4;

/// The mute property of an input's line.
struct MuteProperty {
    bool (cVolume::*read)();
    void (cVolume::*write)(bool);
};

constexpr MuteProperty Properties[] = {
    {&cVolume::LineMute, &cVolume::LineMute},
    {&cVolume::CompactDiscMute, &cVolume::CompactDiscMute},
    {&cVolume::MikrofonMute, &cVolume::MikrofonMute},
};

const MuteProperty* Find(std::int32_t input) {
    return input >= 1 && input < MasterInput ? &Properties[input - 1] : nullptr;
}

} // namespace

void LineMute::MuteLine(std::int32_t input) {
    if (input == MasterInput) volume_.VolumeMute(true);
    const MuteProperty* line = Find(input);
    if (!line) return;
    if (!SavedLineMute.contains(input)) SavedLineMute[input] = (volume_.*line->read)();
    (volume_.*line->write)(true);
}

void LineMute::UnMuteLine(std::int32_t input) {
    if (const MuteProperty* line = Find(input)) (volume_.*line->write)(false);
}

void LineMute::RestoreMuteState(std::int32_t input) {
    const auto saved = SavedLineMute.find(input);
    if (saved == SavedLineMute.end()) return;
    (volume_.*Find(input)->write)(saved->second);
    SavedLineMute.erase(saved);
}

} // namespace vk
