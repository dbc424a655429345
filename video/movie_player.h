// The movie player screen's logic: a list of films, or a disc, played full screen.
#pragma once

#include "core/base.h"
#include "input/key_map.h"
#include "library/browser_state.h"
#include "library/tags/tag_record.h"
#include "playback/audio/held_buttons.h"
#include "playback/video_state.h"
#include "video/disc/medium_watch.h"
#include "video/film_deck.h"
#include "video/film_watch.h"
#include "video/movie_bars.h"
#include "video/movie_disc.h"
#include "video/movie_label.h"
#include "video/movie_list.h"
#include "video/movie_view.h"
#include "video/tracks/track_menu.h"
#include "video/video_data.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Every operation logs what fails in it and leaves the screen as it is.
class MoviePlayer {
  public:
    /// Of one press of forward and rewind; seconds.
    static constexpr int StepSeconds = 10;

    /// All of it outlives the player.
    struct Needs {
        Base& base;
        VideoState& video;
        BrowserState& browser;
        Loudness& loudness;
        const KeyMap& keys;
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
    /// The screen is left for good: what waited behind another screen is closed.
    void Release();
    /// The machine goes to sleep, and is back, whichever screen is in front.
    void Suspend();
    void Resume();
    /// The screen goes; `osShutdown` when the operating system closes it.
    void Form_Unload(bool osShutdown);

    void LoadPlaylist();
    void Play();
    void NextMovie();
    void PreviousMovie();
    void FF_Click(int seconds);
    void RW_Click(int seconds);
    void PauseIt();
    void UnPauseIt();
    void SaveVideoData();

    /// Pauses or goes on; in the menu of a disc presses its button.
    void runok();
    void DoPause();
    void MoveUp();
    void MoveDown();
    void MoveBack();
    void MoveAhead();
    /// Ten seconds, in the menu of a disc, too.
    void DoFF();
    void DoRW();
    void VolUp();
    void VolDown();
    void domute();
    /// Shows the GPS screen where there is one.
    void LoadGPS();
    bool Form_KeyDown(const std::string& code);
    bool DoAction(const InputCode& code);
    bool Repeats(const InputCode& key) const;
    /// The wheel: positive is up.
    void Wheel(int delta);
    /// A touch of the picture, pixels of a screen that is so large.
    void PictureTouched(int x, int y, int width, int height);
    /// Where the picture lies on the screen now, pixels.
    void PicturePlaced(int left, int top, int width, int height);
    /// Asks what of the film is to be heard and read, and on a disc whether its menu is to come.
    void ShowChoices();
    /// A touch button that acts while it is held.
    void Press(HeldAction action) { held_.Press(action); }
    void Release(bool inside);
    /// The buttons are worked by keys, and stay in for that.
    void HoldBars(bool on);

    /// A film is open, perhaps paused behind another screen.
    bool IsOpen() const { return deck_.IsOpen(); }
    FilmDeck& deck() { return deck_; }

  private:
    void Log(const char* where, const std::function<void()>& operation);
    bool BarsOffered() const { return base_.settings.values.MovShowBar; }
    void WantBars();
    void ShowBars();
    void Tick();
    void EverySecond();
    void DoHeld(HeldAction action);
    void ShowPlace();
    void OpenSelected();
    void OpenDisc(const std::string& directory, int title);
    void FilmGone();
    void Notice(const std::string& text);
    bool DiscKey(DvdKey key);
    void PictureCame(std::shared_ptr<const FilmPicture> picture);
    void FilmEnded();
    void FilmFailed();
    void GoOn();
    void Leave();
    void CloseFilm();
    void Wait();
    void ShowPaused();
    FilmPlace Place() const;
    std::string TitleOf(const std::string& path) const;

    Needs n_;
    Base& base_;
    MovieView& view_;
    MovieList list_;
    MovieBars bars_;
    FilmDeck deck_;
    VideoData data_;
    MovieLabel volume_;
    FilmWatch watch_;
    MovieDisc disc_;
    MediumWatch medium_;
    TrackMenu tracks_;
    HeldButtons held_;
    std::unique_ptr<Timer> Timer1; ///< 100 ms, while the screen is in front
    int ticks_ = 0;                ///< since the last full second
    int noticeTicks_ = 0;          ///< until a notice goes
    int messageTicks_ = 0;         ///< until the film after one that failed; 0: none did
    int failed_ = 0;               ///< films in a row
    double in_ = 0;                ///< how much of the bars is on the screen
    bool barsHeld_ = false;
    bool bPlayDVD = false;
    bool seen_ = false;        ///< the film has shown a picture
    bool finished_ = false;    ///< the film came to its end, and begins anew next time
    bool goesOn_ = false;      ///< it played when the screen, the ignition or the machine went
    std::int32_t wakesAt_ = 0; ///< seconds, whether or not films are resumed otherwise
    bool asleep_ = false;      ///< it is closed until the machine is back
};

} // namespace vk
