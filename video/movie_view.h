// The movie player's picture, as its logic asks for it.
#pragma once

#include "platform/media_player.h"

#include <memory>
#include <string>

namespace vk {

/// Texts are UTF-8, and an empty one hides what shows it; pictures are file names of the skin's
/// folder.
class MovieView {
  public:
    virtual ~MovieView() = default;
    /// A picture of the film, black for none. Held until the next.
    virtual void ShowPicture(std::shared_ptr<const FilmPicture> picture) = 0;
    /// `Image4`, until the film's first picture.
    virtual void ShowLoading(bool shown) = 0;
    /// `lbFileTitle`.
    virtual void ShowTitle(const std::string& text) = 0;
    /// Where the film stands.
    virtual void ShowTime(const std::string& text) = 0;
    /// `Vol`, over the film whether or not the bars are in.
    virtual void ShowVolume(const std::string& text) = 0;
    /// What went wrong, in the middle of the screen.
    virtual void ShowMessage(const std::string& text) = 0;
    /// The button between forward and rewind: what a press of it does.
    virtual void ShowPaused(bool paused) = 0;
    /// How much of both bars is in, 0 to 1.
    virtual void ShowBars(double in) = 0;
    /// Brings the screen to the front.
    virtual void ShowAtFront() = 0;
};

} // namespace vk
