// Loudness, as the audio player's keys and buttons change it: through the sound card's lines, never
// through the player process.
#pragma once

#include "core/app_state.h"
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
        Clock& clock;
        PlayerView& view;
    };
    explicit PlayerVolume(Needs needs) : n_(needs) {}

    /// The player is entered: a mute that stands is shown again.
    void Enter();
    /// The player's own level where it has one (`UseSplitVolume`); a loud level is cut to the safe
    /// one, once a run. Without a card both wait for the one that comes.
    void SetFirstLevel();
    /// A card has come, perhaps in place of another: it is muted when the player is, and gets the
    /// first level that still waits.
    void CardCame();
    void VolUp();
    void VolDown();
    /// Fades out and mutes, or fades in again, a step each `mutespeed` milliseconds, and returns
    /// when it is done. Events run meanwhile; a second call among them is ignored.
    void domute();
    /// The screen is left: a fade under way ends at once at its end.
    void Leave() { left_ = true; }
    /// The system ends: a muted card goes back to the level of before, with the mute left on.
    void Unload();
    /// Once a second: hides the text after 4 seconds unless a volume button is held.
    void HideWhenOld(bool held);
    /// What the next run is to find, in the card's units: the level, or that behind a mute. None
    /// without a card.
    std::optional<std::int32_t> LevelToKeep() const;

  private:
    std::int32_t Level() const { return n_.volume.VolumeLevel(); }
    std::int32_t Max() const { return n_.volume.VolumeMax(); }
    std::int32_t Step() const;
    std::int32_t Wanted() const;
    void SetWanted(std::int32_t level);
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
    void WaitAStep();
    void Ramp(std::int32_t target);
    void FadeOut();
    void FadeIn();

    Needs n_;
    std::int32_t VolumeShownAt = 0; ///< whole seconds of the timer value
    bool shown_ = false;
    bool bMuteInProgress = false;
    bool left_ = false;
    bool unloaded_ = false;
    bool firstLevelDue_ = false; ///< it waits for a card
};

} // namespace vk
