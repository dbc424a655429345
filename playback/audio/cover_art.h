// The pictures that belong to what is playing.
#pragma once

#include "core/base.h"
#include "playback/audio/player_view.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace vk {

/// Looking for a picture and decoding it are the view's, away from the event loop; here is what is
/// asked for. A picture that fails is logged and leaves the old one on show.
class CoverArt {
  public:
    /// Both outlive this object.
    CoverArt(Base& base, PlayerView& view) : base_(base), view_(view) {}

    /// The picture of a track, given by its path: that of its tag, else those of its folder. What
    /// comes for another item after this is dropped.
    void ShowCoverArt(const std::string& track);
    /// A picture of its own, as a station's or a channel's; "" for none.
    void ShowPicture(const std::string& file);
    /// Nothing is shown until the next item.
    void Hide();
    /// Once a second of the player's timer: every 15 seconds the next picture of the folder.
    void EverySecond();

  private:
    void Show(const CoverRequest& request, bool takePictures);
    void Forget();
    void NextPicture();
    void LogOnce(const std::string& error);

    Base& base_;
    PlayerView& view_;
    std::vector<std::string> pictures_;
    std::int16_t CoverIndex = 0; ///< 0: no turns; else the entry on show, from 1
    int SecondCount = 0;         ///< 0 to 59
    std::set<std::string> logged_;
};

} // namespace vk
