#include "playback/audio/player_volume.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace vk {

namespace {

constexpr std::int32_t ScaleSteps = 50;
constexpr int RampSteps = 2 * ScaleSteps; // at most: the scale may change under a fade
constexpr int ShownSeconds = 4;
constexpr std::int32_t LongestStepMs = 1000;
constexpr std::int32_t SliceMs = 20; // events run after each
constexpr const char* Caption = "      Volume : ";

} // namespace

std::int32_t PlayerVolume::Step() const {
    return std::max(1, Max() / ScaleSteps);
}

// The wave line's scale need not be the master's.
void PlayerVolume::FollowWave() {
    if (n_.settings.values.AdjMainVol || Max() <= 0) return;
    n_.volume.WaveLevel(
        static_cast<std::int32_t>(std::int64_t{Level()} * n_.volume.WaveMax() / Max()));
}

// Behind a mute, and behind the fade to it, the level itself says nothing.
std::int32_t PlayerVolume::Wanted() const {
    return n_.app.bMuted || bMuteInProgress ? n_.app.MutedLevel : Level();
}

void PlayerVolume::SetWanted(std::int32_t level) {
    if (n_.app.bMuted || bMuteInProgress)
        n_.app.MutedLevel = level;
    else
        SetLevel(level);
}

std::optional<std::int32_t> PlayerVolume::LevelToKeep() const {
    if (Max() <= 0) return std::nullopt;
    return Wanted();
}

std::int32_t PlayerVolume::SafeLevel(std::int32_t wanted) const {
    const Settings& s = n_.settings.values;
    if (!s.safevolume || n_.app.SafeVolumeDone) return wanted;
    return std::min(wanted, static_cast<std::int32_t>(std::int64_t{Max()} * s.safevol_value / 100));
}

void PlayerVolume::CutLoudLevel() {
    if (const auto safe = SafeLevel(Wanted()); safe != Wanted()) SetWanted(safe);
}

void PlayerVolume::Enter() {
    if (!n_.app.bMuted) return;
    showvol();
    ShowMuted();
}

void PlayerVolume::SetFirstLevel() {
    firstLevelDue_ = Max() <= 0;
    if (firstLevelDue_) return;
    if (n_.settings.values.UseSplitVolume) {
        const bool kept = !n_.settings.Read("audio_player", "Volume").empty();
        const auto wanted =
            kept ? n_.settings.Read("audio_player", "Volume", IniType::Long).Long() : Wanted();
        FollowWave();
        SetWanted(std::clamp(SafeLevel(wanted), 0, Max())); // the file may come from another card
    } else {
        CutLoudLevel();
    }
    n_.app.SafeVolumeDone = true;
}

// A level of the player's own comes when the player is entered; a loud one is cut before, too.
void PlayerVolume::CardCame() {
    if (n_.app.bMuted) n_.volume.VolumeMute(true);
    if (firstLevelDue_ || !n_.settings.values.UseSplitVolume)
        SetFirstLevel();
    else
        CutLoudLevel();
}

void PlayerVolume::Unload() {
    Leave();
    unloaded_ = true;
    if (n_.app.bMuted && !bMuteInProgress) SetLevel(n_.app.MutedLevel);
}

bool PlayerVolume::Locked() const {
    return bMuteInProgress || n_.volume.VolumeMute();
}

void PlayerVolume::VolUp() {
    if (Locked() || Level() >= Max() * 0.99) return;
    showvol();
    SetLevel(std::min(Level() + Step(), Max()));
    FollowWave();
    ShowPercent();
}

void PlayerVolume::VolDown() {
    if (Locked()) return;
    showvol();
    SetLevel(Level() > Step() ? Level() - Step() : 0);
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

void PlayerVolume::ShowMuted() {
    ShowText("Muted");
}

// A slow fade must not use up the time that its end is to be seen.
void PlayerVolume::ShowLonger() {
    if (shown_) showvol();
}

void PlayerVolume::WaitAStep() {
    std::int32_t rest = std::clamp(n_.settings.values.mutespeed, 1, LongestStepMs);
    for (; rest > 0 && !left_; rest -= SliceMs) {
        n_.clock.Sleep(std::min(rest, SliceMs));
        n_.clock.DoEvents();
    }
}

void PlayerVolume::Ramp(std::int32_t target) {
    for (int step = 0; step < RampSteps && !left_ && Level() != target; ++step) {
        const std::int32_t before = Level();
        SetLevel(before < target ? std::min(before + Step(), target)
                                 : std::max(before - Step(), target));
        WaitAStep();
        ShowPercent();
        // A card with coarse steps may not take one of these, and one that is gone takes none.
        if (Level() == before) break;
    }
    if (Level() != target) SetLevel(target);
}

void PlayerVolume::FadeOut() {
    n_.app.MutedLevel = Level();
    Ramp(0);
    n_.volume.VolumeMute(true);
    ShowLonger();
    ShowMuted();
    n_.app.bMuted = true;
    if (unloaded_) SetLevel(n_.app.MutedLevel);
}

// From silence, whatever has become of the level meanwhile.
void PlayerVolume::FadeIn() {
    SetLevel(0);
    n_.volume.VolumeMute(false);
    Ramp(std::min(n_.app.MutedLevel, Max()));
    ShowLonger();
    ShowPercent();
    FollowWave();
    n_.app.bMuted = false;
}

void PlayerVolume::domute() {
    if (bMuteInProgress || (!n_.app.bMuted && Level() == 0)) return;
    left_ = false; // of the screen; from another one it works, too
    bMuteInProgress = true;
    // Not across the title of a list that is still coming.
    if (n_.app.bMuted || !n_.app.ListBusy) showvol();
    n_.app.bMuted ? FadeIn() : FadeOut();
    bMuteInProgress = false;
}

} // namespace vk
