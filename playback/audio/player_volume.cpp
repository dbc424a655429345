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

std::int32_t PlayerVolume::Kept() const {
    return static_cast<std::int32_t>(std::lround(n_.app.MasterShare.value_or(0) * Max()));
}

// Behind a mute, and in the fades, the level itself says nothing.
std::int32_t PlayerVolume::Wanted() const {
    return Faded() ? Kept() : Level();
}

void PlayerVolume::SetWanted(std::int32_t level) {
    Remember(level);
    if (!Faded()) SetLevel(level);
}

void PlayerVolume::Remember(std::int32_t level) {
    if (Max() > 0) n_.app.MasterShare = static_cast<double>(level) / Max();
}

std::optional<std::int32_t> PlayerVolume::LevelToKeep() const {
    const bool others = n_.settings.values.UseSplitVolume && !entered_;
    if (Max() <= 0 || others) return std::nullopt;
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
    entered_ = true;
    if (!n_.app.bMuted) return;
    showvol();
    ShowMuted();
}

void PlayerVolume::SetFirstLevel() {
    firstLevelDue_ = Max() <= 0;
    if (firstLevelDue_) return;
    if (n_.settings.values.UseSplitVolume) {
        const std::int32_t wanted = OwnLevel();
        FollowWave();
        SetWanted(SafeLevel(wanted));
    } else {
        CutLoudLevel();
        Remember(Wanted());
    }
    n_.app.SafeVolumeDone = true;
}

// One off the scale is another card's, and says nothing of this one.
std::int32_t PlayerVolume::OwnLevel() {
    if (n_.settings.Read("audio_player", "Volume").empty()) return Wanted();
    const auto kept = n_.settings.Read("audio_player", "Volume", IniType::Long).Long();
    return kept >= 0 && kept <= Max() ? kept : Wanted();
}

// It comes with a level and a mute of its own, such as it was switched on with. A level of the
// player's own comes when the player is entered; a loud one is cut before, too.
void PlayerVolume::CardCame() {
    n_.volume.VolumeMute(n_.app.bMuted);
    if (Faded()) {
        SetLevel(0);
    } else if (n_.app.MasterShare) {
        SetLevel(Kept());
        FollowWave();
    }
    if (firstLevelDue_ || !n_.settings.values.UseSplitVolume)
        SetFirstLevel();
    else
        CutLoudLevel();
}

void PlayerVolume::Unload() {
    unloaded_ = true;
    if (n_.app.bMuted) RestoreBehindMute();
}

void PlayerVolume::RestoreBehindMute() {
    if (n_.volume.VolumeMute()) SetLevel(Kept());
}

bool PlayerVolume::Locked() const {
    return Faded() || n_.volume.VolumeMute();
}

void PlayerVolume::VolUp() {
    if (Locked() || Level() >= Max() * 0.99) return;
    showvol();
    SetWanted(std::min(Level() + Step(), Max()));
    FollowWave();
    ShowPercent();
}

void PlayerVolume::VolDown() {
    if (Locked()) return;
    showvol();
    SetWanted(Level() > Step() ? Level() - Step() : 0);
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
    for (; rest > 0 && !Left(); rest -= SliceMs) {
        n_.clock.Sleep(std::min(rest, SliceMs));
        n_.clock.DoEvents(0);
    }
}

void PlayerVolume::Ramp(bool in) {
    const auto target = [&] { return in ? Kept() : 0; }; // a card that comes may change it
    for (int step = 0; step < RampSteps && !Left() && Level() != target(); ++step) {
        const std::int32_t before = Level();
        SetLevel(before < target() ? std::min(before + Step(), target())
                                   : std::max(before - Step(), target()));
        WaitAStep();
        ShowPercent();
        // A card with coarse steps may not take one of these, and one that is gone takes none.
        if (Level() == before) break;
    }
    if (Level() != target()) SetLevel(target());
}

void PlayerVolume::FadeOut() {
    Remember(Level());
    Ramp(false);
    n_.volume.VolumeMute(true);
    ShowLonger();
    ShowMuted();
    n_.app.bMuted = true;
    if (unloaded_) RestoreBehindMute();
}

// From silence, whatever has become of the level meanwhile. The mute has ended when the fade
// begins: a screen or a card that comes among its events is not to put it back.
void PlayerVolume::FadeIn() {
    SetLevel(0);
    n_.app.bMuted = false;
    n_.volume.VolumeMute(false);
    Ramp(true);
    ShowLonger();
    ShowPercent();
    FollowWave();
}

void PlayerVolume::domute() {
    if (bMuteInProgress || (!n_.app.bMuted && Level() == 0)) return;
    fadeForm_ = n_.screens.CurrentForm.Text();
    bMuteInProgress = true;
    // Not across the title of a list that is still coming.
    if (n_.app.bMuted || !n_.app.ListBusy) showvol();
    n_.app.bMuted ? FadeIn() : FadeOut();
    bMuteInProgress = false;
}

} // namespace vk
