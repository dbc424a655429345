// The movie player screen's logic: entering and leaving it, and what the time brings.
#pragma once

#include "core/base.h"
#include "library/browser_state.h"
#include "library/tags/tag_record.h"
#include "playback/video_state.h"
#include "video/film_run.h"
#include "video/film_watch.h"
#include "video/movie_bars.h"
#include "video/movie_holds.h"
#include "video/movie_label.h"
#include "video/movie_view.h"

#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Every operation logs what fails in it and leaves the screen as it is.
class MoviePlayer {
  public:
    /// All of it outlives the player.
    struct Needs {
        Base& base;
        VideoState& video;
        BrowserState& browser;
        Loudness& loudness;
        ScreenSaver& saver;
        MakeMediaPlayer makePlayer;
        MediumProbe& probe;
        std::function<TagRecord(const std::string& path)> tagOf;
        std::function<void()> loadGPS = {};       ///< empty without a GPS screen
        std::function<void()> checkDaylight = {}; ///< every second: day or night skin
    };
    MoviePlayer(Needs needs, MovieView& view);

    /// Entry with what is to be played set by the caller.
    void ReShow();
    /// Entry from the media browser, where nothing else was chosen: the film goes on.
    void ReDisplay();
    void switchingform();
    /// Saves where the film is, stops it and goes back to the main menu.
    void doquit();
    /// Leaves for the media browser; the film waits.
    void Swap();
    /// Shows the GPS screen where there is one.
    void LoadGPS();
    /// The screen is left for good: what waited behind another screen is closed.
    void Release();
    /// The screen goes; `osShutdown` when the operating system closes it.
    void Form_Unload(bool osShutdown);

    /// Pauses or goes on.
    void DoPause();

    FilmRun& films() { return films_; }
    MovieBars& bars() { return bars_; }
    MovieHolds& holds() { return holds_; }

  private:
    void ComeToFront();
    void Leave();
    void Tick();
    void EverySecond();

    Needs n_;
    Base& base_;
    MovieView& view_;
    MovieBars bars_;
    FilmRun films_;
    MovieHolds holds_;
    MovieLabel volume_;
    FilmWatch watch_;
    std::unique_ptr<Timer> Timer1; ///< 100 ms, while the screen is in front
    int ticks_ = 0;                ///< since the last full second
};

} // namespace vk
