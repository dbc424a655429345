// The pictures that belong to what is playing.
#pragma once

#include "core/app_state.h"
#include "core/debug_log.h"
#include "playback/audio/player_view.h"
#include "playback/audio_state.h"

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace vk {

/// Looking for a picture and decoding it are the view's, away from the event loop; here is what is
/// asked for. A picture that fails is logged and leaves the old one on show.
class CoverArt {
  public:
    struct Needs {
        AudioState& audio;
        AppState& app;
        const std::string& appDir;
        const DebugLog& log;
        PlayerView& view;
        /// The logo's file of a satellite channel; may be missing.
        std::function<std::string(const std::string& channel)> xmLogo;
    };
    explicit CoverArt(Needs needs) : n_(std::move(needs)) {}

    /// `item` is the path of a track (never of a disc's), the name or frequency of a preset, or a
    /// satellite channel's number. What came for another item before is dropped.
    void ShowCoverArt(const std::string& item);
    /// Nothing is shown until the next item.
    void Hide();
    /// Once a second of the player's timer: every 15 seconds the next picture of the folder.
    void EverySecond();

  private:
    void Show(const CoverRequest& request, bool takePictures);
    void ShowTrack(const std::string& path);
    void ShowFile(const std::string& picture);
    void NextPicture();
    void LogOnce(const std::string& error);

    Needs n_;
    std::vector<std::string> pictures_;
    std::int16_t CoverIndex = 0; ///< 0: no turns; else the entry on show, from 1
    int SecondCount = 0;         ///< 0 to 59
    std::set<std::string> logged_;
};

} // namespace vk
