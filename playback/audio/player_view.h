// The audio player's picture, as its logic asks for it.
#pragma once

#include "playback/audio/cover_files.h"

#include <functional>
#include <string>

namespace vk {

/// The buttons whose pictures follow the state.
enum class PlayerButton {
    Rewind,      ///< `TSRewindBtn`
    FastForward, ///< `TSFastForwardBtn`
    Pause,       ///< `TSPauseBtn`
    VolumeDown,  ///< `TSVolDownBtn`
    VolumeUp,    ///< `TSVolUpBtn`
    Shuffle,     ///< `TSshuffleBtn`
    Source       ///< `TSRadio2MP3Btn`: the source that a press selects
};

/// The screen as the logic sees it. Texts are UTF-8; pictures are file names of the skin's folder,
/// and a missing file leaves the old picture.
class PlayerView {
  public:
    virtual ~PlayerView() = default;
    /// The scrolling title, `UCST`.
    virtual void ShowTitle(const std::string& text) = 0;
    /// `artistlabel` and its shade.
    virtual void ShowArtist(const std::string& text) = 0;
    /// `lblBitRate`: the bit rate, of a tuner the kind of reception.
    virtual void ShowBitRate(const std::string& text) = 0;
    virtual void ShowTrackTime(const std::string& text) = 0;
    /// `lbPlayListTitle`, which gives way to the volume text while that is shown.
    virtual void ShowListTitle(const std::string& text) = 0;
    /// `Vol` in the place of the list's title; an empty text brings the title back.
    virtual void ShowVolume(const std::string& text) = 0;
    /// `Label1`, date and time.
    virtual void ShowClock(const std::string& text) = 0;
    /// `lbLoading`, drawn at once; an empty text hides it.
    virtual void ShowLoading(const std::string& text) = 0;
    /// The sign of the source, a picture of the skin.
    virtual void ShowMediaType(const std::string& picture) = 0;
    /// `lblShuffle`.
    virtual void ShowShuffle(bool on) = 0;
    virtual void SetButton(PlayerButton button, const std::string& picture) = 0;
    /// Looks for a picture and decodes it in the background. When it is there it is shown in
    /// `imgCoverArt`, which is hidden when there is none and left alone after an error; then `done`
    /// is told. Nothing of that happens once another picture, or none, has been asked for.
    virtual void LoadCover(const CoverRequest& request,
                           std::function<void(const CoverOutcome&)> done) = 0;
    virtual void HideCover() = 0;
    virtual void ReDrawCover() = 0;
    /// Draws the list anew from its model.
    virtual void ReDrawList() = 0;
    /// `Frame1`, which holds the whole player.
    virtual void ShowFrame(bool shown) = 0;
    /// Brings the screen to the front.
    virtual void ShowAtFront() = 0;
};

} // namespace vk
