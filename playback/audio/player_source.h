// A source of the audio player: what differs between audio files and the tuners.
#pragma once

#include "playback/audio/favorites.h"

#include <string>

namespace vk {

/// One object a source; the player asks the one of the present `PlayMode`. A machine without a
/// tuner has none for its mode, and the player's operations then do nothing.
class PlayerSource {
  public:
    virtual ~PlayerSource() = default;
    /// Makes a tuner ready to play: its channels are known then. Events run inside. False when it
    /// does not answer.
    virtual bool Start() { return true; }
    /// Fills the list and, with `bStartPlaying`, starts the sound. Events run inside.
    virtual void LoadPlaylist() = 0;
    /// Shows what is playing.
    virtual void UpdateScreen() = 0;
    /// Plays the selected list entry.
    virtual void runok() = 0;
    /// The next and the previous track, channel or station.
    virtual void MoveAhead() = 0;
    virtual void MoveBack() = 0;
    /// A touch of the forward or rewind button too short to be a hold.
    virtual void ShortPress(bool ahead) = 0;
    /// A step forward or back inside of what is playing; a held button asks for one a tick.
    virtual void DoFF() = 0;
    virtual void DoRW() = 0;
    virtual void DoPlay() = 0;
    /// Pauses or goes on.
    virtual void DoPause() = 0;
    /// Every 100 ms while the screen is in front.
    virtual void Tick() = 0;
    /// Every second, and soon after a step, while the screen is in front.
    virtual void EverySecond() = 0;
    /// The screen is left and the sound goes on: what the ticks kept up to date no longer is.
    virtual void LeaveScreen() = 0;
    /// Writes to the settings what the next start resumes from.
    virtual void Save() = 0;
    virtual void Stop() = 0;
    /// The sign of the source, a picture of the skin.
    virtual std::string MediaTypeIcon() const = 0;
    /// The list entry that is selected, or the station that is tuned in.
    virtual Favorite SelectedFavorite() { return {}; }
};

} // namespace vk
