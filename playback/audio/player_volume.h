// Loudness, as the audio player's keys and buttons change it: through the sound card's lines, never
// through the player process.
#pragma once

#include "core/app_state.h"
#include "core/screens.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "playback/audio/player_view.h"
#include "playback/c_volume.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vk {

/// Without a sound card the scale is empty: nothing gets louder, and what is shown is 0%.
class PlayerVolume {
  public:
    struct Needs {
        cVolume& volume;
        SettingsStore& settings;
        AppState& app;
        const Screens& screens;
        Clock& clock;
        PlayerView& view;
    };
    explicit PlayerVolume(Needs needs) : n_(needs) {}

    /// The player is entered: a mute that stands is shown again.
    void Enter();
    /// The player's own level where it has one (`UseSplitVolume`); a loud level is cut to the safe
    /// one, once a run. Without a card both wait for the one that comes.
    void SetFirstLevel();
    /// A card has come, perhaps in place of another: it gets the mute and the level of the one
    /// before, or the first level when that still waits.
    void CardCame();
    void VolUp();
    void VolDown();
    /// Fades out and mutes, or fades in again, a step each `mutespeed` milliseconds, and returns
    /// when it is done, or at once when another screen comes to the front. Events run meanwhile; a
    /// second call among them is ignored.
    void domute();
    /// The system ends: a muted card goes back to the level of before, with the mute left on, and
    /// stays silent when it has no such switch.
    void Unload();
    /// Once a second: hides the text after 4 seconds unless a volume button is held.
    void HideWhenOld(bool held);
    /// What the next run is to find, in the card's units: the level, or that behind a mute. None
    /// without a card, nor of a level of the player's own that it has not been entered with.
    std::optional<std::int32_t> LevelToKeep() const;

  private:
    std::int32_t Level() const { return n_.volume.VolumeLevel(); }
    std::int32_t Max() const { return n_.volume.VolumeMax(); }
    std::int32_t Step() const;
    bool Faded() const { return n_.app.bMuted || bMuteInProgress; }
    std::int32_t Kept() const;
    std::int32_t Wanted() const;
    void SetWanted(std::int32_t level);
    void Remember(std::int32_t level);
    std::int32_t OwnLevel();
    void CutLoudLevel();
    void SetLevel(std::int32_t level) { n_.volume.VolumeLevel(level); }
    void FollowWave();
    std::int32_t SafeLevel(std::int32_t wanted) const;
    bool Locked() const;
    void showvol();
    void ShowPercent();
    void ShowText(const std::string& level);
    void ShowMuted();
    void ShowLonger();
    bool Left() const { return unloaded_ || n_.screens.CurrentForm != fadeForm_; }
    void WaitAStep();
    void Ramp(bool in);
    void RestoreBehindMute();
    void FadeOut();
    void FadeIn();

    Needs n_;
    std::int32_t VolumeShownAt = 0; ///< whole seconds of the timer value
    bool shown_ = false;
    bool bMuteInProgress = false;
    std::string fadeForm_; ///< the screen in front when the last fade began
    bool entered_ = false;
    bool unloaded_ = false;
    bool firstLevelDue_ = false; ///< it waits for a card
};

} // namespace vk
