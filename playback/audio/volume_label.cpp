#include "playback/audio/volume_label.h"

namespace vk {

namespace {

constexpr int ShownSeconds = 4;
constexpr const char* Caption = "      Volume : ";

} // namespace

VolumeLabel::VolumeLabel(Base& base, Loudness& loudness, PlayerView& view)
    : base_(base), view_(view), loudness_(loudness),
      listener_(loudness, [this](const std::string& level) { Show(level); }) {}

void VolumeLabel::Enter() {
    if (loudness_.Muted()) Show(loudness_.Text());
}

void VolumeLabel::Show(const std::string& level) {
    if (!shown_ && base_.pump.Waiting()) return; // not across the title of a list on its way
    shown_ = true;
    VolumeShownAt = static_cast<std::int32_t>(base_.clock.Now().SecondsOfDay());
    view_.ShowVolume(Caption + level);
}

void VolumeLabel::HideWhenOld(bool held) {
    if (!shown_ || held) return;
    const int age = static_cast<int>(base_.clock.Now().SecondsOfDay()) - VolumeShownAt;
    // Negative after midnight.
    if (age >= 0 && age <= ShownSeconds) return;
    shown_ = false;
    view_.ShowVolume("");
}

} // namespace vk
