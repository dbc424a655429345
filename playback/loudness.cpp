#include "playback/loudness.h"

#include <algorithm>
#include <cmath>

namespace vk {

namespace {

constexpr std::int32_t ScaleSteps = 50;
constexpr int FadeSteps = 2 * ScaleSteps; // at most: the scale may change under a fade
constexpr std::int32_t LongestStepMs = 1000;
constexpr std::int32_t SliceMs = 20; // how soon a fade notices that its screen has gone

} // namespace

LoudnessListener::LoudnessListener(Loudness& loudness, Show show)
    : loudness_(loudness), show_(std::move(show)) {
    loudness_.listeners_.push_back(this);
}

LoudnessListener::~LoudnessListener() {
    std::erase(loudness_.listeners_, this);
}

Loudness::Loudness(Base& base, cVolume& card)
    : base_(base), card_(card), timer_(base.clock.MakeTimer([this] { FadeTick(); })) {}

void Loudness::Tell() const {
    for (const LoudnessListener* listener : listeners_)
        listener->show_(Text());
}

void Loudness::TellPercent() {
    const double percent = Max() > 0 ? 100.0 * Level() / Max() : 0;
    percent_ = static_cast<std::int32_t>(std::lround(percent));
    Tell();
}

// Level ------------------------------------------------------------------------------------------

std::int32_t Loudness::Step() const {
    return std::max(1, Max() / ScaleSteps);
}

// The wave line's scale need not be the master's.
void Loudness::FollowWave() {
    if (Options().AdjMainVol || Max() <= 0) return;
    card_.WaveLevel(static_cast<std::int32_t>(std::int64_t{Level()} * card_.WaveMax() / Max()));
}

std::int32_t Loudness::Kept() const {
    return static_cast<std::int32_t>(std::lround(share_.value_or(0) * Max()));
}

// Behind a mute, and in the fades, the level itself says nothing.
void Loudness::SetWanted(std::int32_t level) {
    Remember(level);
    if (!Faded()) SetLevel(level);
}

void Loudness::Remember(std::int32_t level) {
    if (Max() > 0) share_ = static_cast<double>(level) / Max();
}

void Loudness::VolUp() {
    if (Locked() || Level() >= Max() * 0.99) return;
    SetWanted(std::min(Level() + Step(), Max()));
    FollowWave();
    TellPercent();
}

void Loudness::VolDown() {
    if (Locked()) return;
    SetWanted(Level() > Step() ? Level() - Step() : 0);
    FollowWave();
    TellPercent();
}

void Loudness::SetPercent(std::int32_t percent) {
    if (Locked()) return;
    SetWanted(static_cast<std::int32_t>(std::int64_t{Max()} * std::clamp(percent, 0, 100) / 100));
    FollowWave();
    TellPercent();
}

// Safe and split volume --------------------------------------------------------------------------

std::optional<std::int32_t> Loudness::LevelToKeep(const Setting<std::int32_t>& kept) const {
    const bool others = Options().UseSplitVolume && kept_ != &kept;
    if (Max() <= 0 || others) return std::nullopt;
    return Wanted();
}

std::int32_t Loudness::SafeLevel(std::int32_t wanted) const {
    const Settings& s = Options();
    if (!s.safevolume || safeVolumeDone_) return wanted;
    return std::min(wanted, static_cast<std::int32_t>(std::int64_t{Max()} * s.safevol_value / 100));
}

void Loudness::CutLoudLevel() {
    if (const auto safe = SafeLevel(Wanted()); safe != Wanted()) SetWanted(safe);
}

// A player with a level of its own has that one cut when it is entered.
void Loudness::CutAtStart() {
    if (!Options().safevolume || Max() <= 0) return;
    CutLoudLevel();
    safeVolumeDone_ = safeVolumeDone_ || !Options().UseSplitVolume;
}

void Loudness::Enter(const Setting<std::int32_t>& kept) {
    kept_ = &kept;
    SetFirstLevel();
}

void Loudness::SetFirstLevel() {
    firstLevelDue_ = Max() <= 0;
    if (firstLevelDue_) return;
    if (Options().UseSplitVolume) {
        const std::int32_t wanted = OwnLevel();
        FollowWave();
        SetWanted(SafeLevel(wanted));
    } else {
        CutLoudLevel();
        Remember(Wanted());
    }
    safeVolumeDone_ = true;
}

// One off the scale is another card's, and says nothing of this one.
std::int32_t Loudness::OwnLevel() {
    if (!kept_ || base_.settings.Text(*kept_).empty()) return Wanted();
    const auto kept = base_.settings.Get(*kept_);
    return kept >= 0 && kept <= Max() ? kept : Wanted();
}

// It comes with a level and a mute of its own, such as it was switched on with. A level of a
// player's own comes when that is entered; a loud one is cut before, too.
void Loudness::CardCame() {
    RestoreMute();
    if (Faded()) {
        SetLevel(0);
    } else if (share_) {
        SetLevel(Kept());
        FollowWave();
    }
    if (firstLevelDue_ || !Options().UseSplitVolume)
        SetFirstLevel();
    else
        CutLoudLevel();
}

void Loudness::Resume() {
    if (Options().safevolume && Max() > 0) {
        safeVolumeDone_ = false;
        CutLoudLevel();
        FollowWave();
        safeVolumeDone_ = true;
    }
    RestoreMute();
}

void Loudness::Unload() {
    if (Fading()) EndFade();
    if (muted_ && card_.VolumeMute()) SetLevel(Kept());
}

// Fades ------------------------------------------------------------------------------------------

// In from silence, whatever has become of the level meanwhile. The mute has ended when that fade
// begins: a screen or a card that comes meanwhile is not to put it back.
void Loudness::domute() {
    if (Fading() || (!muted_ && Level() == 0)) return;
    fadesIn_ = muted_;
    if (fadesIn_) {
        SetLevel(0);
        muted_ = false;
        RestoreMute();
    } else {
        Remember(Level());
    }
    fadeForm_ = base_.screens.CurrentForm.Text();
    stepsLeft_ = FadeSteps;
    stepDueMs_ = base_.clock.TickMs();
    timer_->Start(std::clamp(Options().mutespeed, 1, SliceMs));
    FadeTick();
}

void Loudness::FadeTick() {
    const bool left = base_.screens.CurrentForm != fadeForm_;
    if (!left && base_.clock.TickMs() < stepDueMs_) return;
    stepDueMs_ += std::clamp(Options().mutespeed, 1, LongestStepMs);
    if (left || !FadeStep()) EndFade();
}

// False at the end. A card with coarse steps may not take one of these, and one that is gone takes
// none.
bool Loudness::FadeStep() {
    const std::int32_t before = Level(), target = FadeTarget();
    if (before == target || stepsLeft_-- == 0) return false;
    SetLevel(before < target ? std::min(before + Step(), target)
                             : std::max(before - Step(), target));
    TellPercent();
    return Level() != before;
}

void Loudness::EndFade() {
    timer_->Stop();
    if (Level() != FadeTarget()) SetLevel(FadeTarget());
    if (fadesIn_) {
        FollowWave();
        return TellPercent();
    }
    card_.VolumeMute(true);
    muted_ = true;
    Tell();
}

} // namespace vk
