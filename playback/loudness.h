// How loud the system is: one object that every screen with volume keys shares, over the sound
// card's lines and never through the player process.
#pragma once

#include "core/base.h"
#include "playback/c_volume.h"
#include "playback/line_mute.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vk {

class Loudness;

/// Hears what is to be shown of the loudness, whichever screen changed it, for as long as it lives.
class LoudnessListener {
  public:
    /// Told after each change that was asked for, and for each step of a fade: "52%" or "Muted".
    using Show = std::function<void(const std::string& level)>;

    /// `loudness` outlives this object.
    LoudnessListener(Loudness& loudness, Show show);
    ~LoudnessListener();
    LoudnessListener(const LoudnessListener&) = delete;
    LoudnessListener& operator=(const LoudnessListener&) = delete;

  private:
    friend class Loudness;
    Loudness& loudness_;
    Show show_;
};

/// Without a sound card the scale is empty: nothing gets louder, and what is shown is 0%. Levels
/// are in the card's units.
class Loudness {
  public:
    /// Both outlive this object.
    Loudness(Base& base, cVolume& card);

    void VolUp();
    void VolDown();
    /// Straight to a level of the scale, percent; like `VolUp` it does nothing while muted.
    void SetPercent(std::int32_t percent);
    /// Fades out and mutes, or fades in again, a step each `mutespeed` milliseconds (at once when
    /// the screen in front changes meanwhile). Returns when the fade has begun; while it goes on
    /// another call is ignored, and so are `VolUp` and `VolDown`.
    void domute();
    bool Muted() const { return muted_; }
    bool Fading() const { return timer_->Enabled(); }
    /// Of the scale, as last told; percent.
    std::int32_t Percent() const { return percent_; }
    /// What `LoudnessListener` was told last.
    std::string Text() const { return muted_ ? "Muted" : std::to_string(percent_) + "%"; }

    /// The player whose level is kept in `kept` is entered: with `UseSplitVolume` it gets that; a
    /// loud level is cut to the safe one, once a run. Without a card both wait for the one that
    /// comes.
    void Enter(const Setting<std::int32_t>& kept);
    /// The system has started: a loud level is cut before anything plays.
    void CutAtStart();
    /// What the next run is to find in `kept`, a player's: the level, or that behind a mute.
    /// None without a card, nor of a level of its own that it has not been entered with.
    std::optional<std::int32_t> LevelToKeep(const Setting<std::int32_t>& kept) const;

    /// A card has come, perhaps in place of another: it gets the mute and the level of the one
    /// before, or the first level when that still waits.
    void CardCame();
    /// Gives the card the user's mute: one that a tuner or a suspend has left behind ends.
    void RestoreMute() { card_.VolumeMute(muted_); }
    /// The machine goes to sleep: silent, whatever the user's mute. And back: with the safe volume,
    /// and the user's mute.
    void Suspend() { card_.VolumeMute(true); }
    void Resume();
    /// The system ends: a muted card goes back to the level of before, with the mute left on, and
    /// stays silent when it has no such switch.
    void Unload();
    /// See `cVolume`.
    void ShowHardwareProblem() { card_.ShowHardwareProblem(); }
    /// The mutes of the tuners' lines.
    LineMute& Lines() { return lines_; }

  private:
    friend class LoudnessListener;
    std::int32_t Level() const { return card_.VolumeLevel(); }
    void SetLevel(std::int32_t level) { card_.VolumeLevel(level); }
    std::int32_t Max() const { return card_.VolumeMax(); }
    std::int32_t Step() const;
    const Settings& Options() const { return base_.settings.values; }
    bool Faded() const { return muted_ || Fading(); }
    bool Locked() const { return Faded() || card_.VolumeMute(); }
    std::int32_t Kept() const;
    std::int32_t Wanted() const { return Faded() ? Kept() : Level(); }
    void SetWanted(std::int32_t level);
    void Remember(std::int32_t level);
    std::int32_t OwnLevel();
    std::int32_t SafeLevel(std::int32_t wanted) const;
    void CutLoudLevel();
    void SetFirstLevel();
    void FollowWave();
    void Tell() const;
    void TellPercent();

    std::int32_t FadeTarget() const { return fadesIn_ ? Kept() : 0; }
    void FadeTick();
    bool FadeStep();
    void EndFade();

    Base& base_;
    cVolume& card_;
    LineMute lines_{card_};
    std::vector<LoudnessListener*> listeners_;
    /// What the master line was set to, of its scale, 0 to 1: to go back to from a mute and to give
    /// to a card that comes, whose units may be others. None before the first.
    std::optional<double> share_;
    std::int32_t percent_ = 0;
    bool muted_ = false;
    /// Of the player that was entered last; null: none was.
    const Setting<std::int32_t>* kept_ = nullptr;
    bool firstLevelDue_ = false; ///< it waits for a card
    bool safeVolumeDone_ = false;

    std::unique_ptr<Timer> timer_; ///< runs while a fade does
    bool fadesIn_ = false;
    std::string fadeForm_; ///< the screen in front when the fade began
    std::int64_t stepDueMs_ = 0;
    int stepsLeft_ = 0;
};

} // namespace vk
