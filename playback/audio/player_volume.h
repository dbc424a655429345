// Loudness, as the audio player's keys and buttons change it: through the sound card's lines, never
// through the player process.
#pragma once

#include "core/app_state.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "playback/audio/player_view.h"
#include "playback/c_volume.h"

#include <cstdint>

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

    /// The player is entered: the step is a fiftieth of the scale.
    void Enter();
    /// The player's own level where it has one (`UseSplitVolume`); a loud level is cut to the safe
    /// one, once a run.
    void SetFirstLevel();
    void VolUp();
    void VolDown();
    /// Fades out and mutes, or fades in again, a step each `mutespeed` milliseconds, and returns
    /// when it is done. Events run meanwhile; a second call among them is ignored.
    void domute();
    /// The screen is left: a fade under way ends at once at its end.
    void Leave() { left_ = true; }
    /// Once a second: hides the text after 4 seconds unless a volume button is held.
    void HideWhenOld(bool held);
    /// `VolumeLevel` in the card's units, 0 without a card.
    std::int32_t Level() const { return n_.volume.VolumeLevel(); }

  private:
    std::int32_t Max() const { return n_.volume.VolumeMax(); }
    void SetLevel(std::int32_t level) { n_.volume.VolumeLevel(level); }
    void FollowWave();
    std::int32_t SafeLevel(std::int32_t wanted) const;
    bool Locked() const;
    void showvol();
    void ShowPercent();
    void ShowText(const std::string& level);
    void Ramp(std::int32_t target);
    void FadeOut();
    void FadeIn();

    Needs n_;
    std::int32_t VolumeStep = 1;
    std::int32_t storedLevel_ = 0;
    std::int32_t VolumeShownAt = 0; ///< whole seconds of the timer value
    bool shown_ = false;
    bool bMuteInProgress = false;
    bool left_ = false;
};

} // namespace vk
