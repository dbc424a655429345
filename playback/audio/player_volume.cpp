#include "playback/audio/player_volume.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace vk {

namespace {

constexpr std::int32_t ScaleSteps = 50;
constexpr int ShownSeconds = 4;
constexpr const char* Caption = "      Volume : ";

} // namespace

void PlayerVolume::FollowWave() {
    if (!n_.settings.values.AdjMainVol) n_.volume.WaveLevel(Level());
}

std::int32_t PlayerVolume::SafeLevel(std::int32_t wanted) const {
    const Settings& s = n_.settings.values;
    if (!s.safevolume || n_.app.SafeVolumeDone) return wanted;
    return std::min(wanted, static_cast<std::int32_t>(std::int64_t{Max()} * s.safevol_value / 100));
}

void PlayerVolume::Enter() {
    left_ = false;
    VolumeStep = std::max(1, Max() / ScaleSteps);
}

void PlayerVolume::SetFirstLevel() {
    if (n_.settings.values.UseSplitVolume) {
        const auto wanted = n_.settings.Read("audio_player", "Volume", IniType::Long).Long();
        FollowWave();
        SetLevel(std::clamp(SafeLevel(wanted), 0, Max())); // the file may come from another card
    } else if (const auto safe = SafeLevel(Level()); safe != Level()) {
        SetLevel(safe);
    }
    n_.app.SafeVolumeDone = true;
}

bool PlayerVolume::Locked() const {
    return bMuteInProgress || n_.volume.VolumeMute();
}

void PlayerVolume::VolUp() {
    if (Locked() || Level() >= Max() * 0.99) return;
    showvol();
    SetLevel(std::min(Level() + VolumeStep, Max()));
    FollowWave();
    ShowPercent();
}

void PlayerVolume::VolDown() {
    if (Locked()) return;
    showvol();
    SetLevel(Level() > VolumeStep ? Level() - VolumeStep : 0);
    FollowWave();
    ShowPercent();
}

void PlayerVolume::showvol() {
    VolumeShownAt = static_cast<std::int32_t>(n_.clock.Now().SecondsOfDay());
    shown_ = true;
}

void PlayerVolume::ShowPercent() {
    const double percent = Max() > 0 ? 100.0 * Level() / Max() : 0;
    n_.app.VolumePercent = static_cast<std::int32_t>(std::lround(percent));
    ShowText(std::to_string(n_.app.VolumePercent) + "%");
}

void PlayerVolume::ShowText(const std::string& level) {
    if (shown_) n_.view.ShowVolume(Caption + level);
}

void PlayerVolume::HideWhenOld(bool held) {
    if (!shown_ || held || bMuteInProgress) return;
    const int age = static_cast<int>(n_.clock.Now().SecondsOfDay()) - VolumeShownAt;
    // Negative after midnight.
    if (age >= 0 && age <= ShownSeconds) return;
    shown_ = false;
    n_.view.ShowVolume("");
}

void PlayerVolume::Ramp(std::int32_t target) {
    while (!left_ && Level() != target) {
        const std::int32_t before = Level();
        SetLevel(before < target ? std::min(before + VolumeStep, target)
                                 : std::max(before - VolumeStep, target));
        n_.clock.Sleep(std::max(1, n_.settings.values.mutespeed));
        ShowPercent();
        n_.clock.DoEvents();
        // A card with coarse steps may not reach the level to the unit, and one that is gone has
        // none.
        if (Level() == before) return;
    }
    if (left_) SetLevel(target);
}

void PlayerVolume::FadeOut() {
    storedLevel_ = Level();
    Ramp(0);
    n_.volume.VolumeMute(true);
    ShowText("Muted");
    n_.app.bMuted = true;
}

void PlayerVolume::FadeIn() {
    n_.volume.VolumeMute(false);
    Ramp(storedLevel_);
    ShowPercent();
    FollowWave();
    n_.app.bMuted = false;
}

void PlayerVolume::domute() {
    if (bMuteInProgress || (!n_.app.bMuted && Level() == 0)) return;
    bMuteInProgress = true;
    // Not across the title of a list that is still coming.
    if (n_.app.bMuted || !n_.app.ListBusy) showvol();
    n_.app.bMuted ? FadeIn() : FadeOut();
    bMuteInProgress = false;
}

} // namespace vk
