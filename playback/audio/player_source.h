// A source of the audio player: all that differs between audio files and the tuners.
#pragma once

#include "core/pump.h"
#include "playback/audio/favorites.h"
#include "playback/transport.h"

#include <string>

namespace vk {

/// One object a source; the player asks the one of the present `PlayMode`. A machine without a
/// tuner has none for its mode, and the player's operations then do nothing. Events run inside
/// where something is waited for; what comes back then has been ended when the user leaves.
class PlayerSource {
  public:
    virtual ~PlayerSource() = default;

    /// Asked before the present source is silenced: better that than nothing. One that cannot play
    /// says why.
    virtual bool CanPlay() { return true; }
    /// Takes over from another source, which has given way: becomes the `PlayMode`, and starts what
    /// it played last. False when that has gone, and the player is to be quit.
    virtual bool SwitchTo() = 0;
    /// The screen is shown with this source: what the caller asks for in the state is shown, and
    /// with `bStartPlaying` started.
    virtual void Enter() = 0;
    /// The screen comes back to it, or to a list of it that was chosen elsewhere meanwhile.
    virtual void EnterAgain() = 0;
    /// Fills the list and, with `bStartPlaying`, starts the sound.
    virtual void LoadPlaylist() = 0;
    /// The screen is left and the sound goes on: what the ticks kept up to date no longer is.
    virtual void LeaveScreen() {}
    /// What left the player by `Swap` finds its way back to where it was chosen.
    virtual bool RemembersChoice() const { return true; }
    /// Another source takes over: the sound stops, and can be gone on with later.
    virtual void GiveWay() = 0;
    /// The player is quit.
    virtual void Stop() = 0;
    /// Writes to the settings what the next start resumes from.
    virtual void Save() = 0;
    /// The machine goes to sleep, and is back.
    virtual void Suspend() { Save(); }
    virtual void Resume() {}
    /// What it plays from was taken out.
    virtual bool IsGone() { return false; }

    /// Plays the selected list entry.
    virtual void runok() = 0;
    /// The next and the previous track, channel or station.
    virtual void MoveAhead() = 0;
    virtual void MoveBack() = 0;
    /// A touch of the forward or rewind button too short to be a hold.
    virtual void ShortPress(bool ahead) { ahead ? MoveAhead() : MoveBack(); }
    /// A step forward or back inside of what is playing; a held button asks for one a tick.
    virtual void DoFF() = 0;
    virtual void DoRW() = 0;
    /// The same by a held button.
    virtual void Held(bool ahead) { ahead ? DoFF() : DoRW(); }
    /// A turn of the wheel asks for these steps, and does not move the list.
    virtual bool WheelSteps() const { return false; }
    virtual void DoPlay() = 0;
    /// Pauses or goes on.
    virtual void DoPause() = 0;

    /// Every 100 ms while the screen is in front.
    virtual void Tick() {}
    /// Every second, and soon after a step, while the screen is in front.
    virtual void EverySecond() = 0;

    /// Shows what is playing.
    virtual void UpdateScreen() = 0;
    /// The time label anew: the time gone or the time left.
    virtual void ShowTrackTime() {}
    /// The sign of the source, a picture of the skin.
    virtual std::string MediaTypeIcon() const = 0;
    /// The list entry that is selected, or the station that is tuned in.
    virtual Favorite SelectedFavorite() { return {}; }
    /// It has been added to the list of favourites.
    virtual void FavoriteAdded() {}
    /// What plays, for other screens.
    virtual NowPlaying Now() { return {}; }
    /// See `Transport`.
    virtual bool NeedsPlayer() const { return false; }
    virtual void GoOn(std::int32_t /*track*/, std::int32_t /*seconds*/) {}
};

} // namespace vk
