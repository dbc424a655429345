// What the films' screen plays: the films of a list one after the other, or a disc; where each goes
// on, and what follows when one ends, fails or is taken out.
#pragma once

#include "core/base.h"
#include "library/tags/tag_record.h"
#include "platform/medium_probe.h"
#include "playback/loudness.h"
#include "playback/video_state.h"
#include "video/disc/medium_watch.h"
#include "video/film_deck.h"
#include "video/movie_bars.h"
#include "video/movie_disc.h"
#include "video/movie_list.h"
#include "video/movie_notices.h"
#include "video/movie_view.h"
#include "video/tracks/track_menu.h"
#include "video/video_data.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vk {

/// Every operation logs what fails in it.
class FilmRun {
  public:
    /// All of it outlives the run.
    struct Needs {
        Base& base;
        const VideoState& video;
        Loudness& loudness;
        MakeMediaPlayer makePlayer;
        MediumProbe& probe;
        std::function<TagRecord(const std::string& path)> tagOf;
        MovieView& view;
        MovieBars& bars;
        std::function<void()> over; ///< the list has come to its end
    };
    explicit FilmRun(Needs needs);

    /// Takes what is to be played; false when the list cannot be read.
    bool LoadPlaylist();
    void Play();
    void NextMovie();
    void PreviousMovie();
    void FF_Click(int seconds);
    void RW_Click(int seconds);
    void PauseIt();
    void UnPauseIt();
    void SaveVideoData();
    /// Asks what of the film is to be heard and read, and on a disc whether its menu is to come.
    void ShowChoices();
    /// Closes what is open.
    void Close();

    /// Nobody sees the film until the screen is back: it pauses, and `GoOnAfterWait` has it go on.
    void Wait();
    void GoOnAfterWait();
    /// The machine goes to sleep, and is back, whichever screen is in front.
    void Suspend();
    void Resume();

    /// About every 100 ms, and once a second besides.
    void Tick();
    void EverySecond();

    /// A film is open, perhaps paused behind another screen.
    bool IsOpen() const { return deck_.IsOpen(); }
    bool Playing() const { return deck_.Playing(); }
    bool Paused() const { return deck_.Paused(); }
    /// The path of the list's film, "" for none.
    std::string Selected() const { return list_.Selected(); }
    MovieDisc& disc() { return disc_; }

  private:
    void Trap(const char* where, const std::function<void()>& operation);
    void OpenSelected();
    void OpenDisc(const std::string& directory, int title);
    void FilmGone();
    void PictureCame(std::shared_ptr<const FilmPicture> picture);
    void FilmEnded();
    void FilmFailed();
    void GoOn();
    void ShowPaused();
    void ShowPlace();
    FilmPlace Place() const;
    std::string TitleOf(const std::string& path) const;

    Needs n_;
    MovieList list_;
    FilmDeck deck_;
    VideoData data_;
    MovieNotices notices_;
    MovieDisc disc_;
    MediumWatch medium_;
    TrackMenu tracks_;
    int failed_ = 0; ///< films in a row
    bool bPlayDVD = false;
    bool seen_ = false;        ///< the film has shown a picture
    bool finished_ = false;    ///< the film came to its end, and begins anew next time
    bool goesOn_ = false;      ///< it played when the screen, the ignition or the machine went
    std::int32_t wakesAt_ = 0; ///< seconds, whether or not films are resumed otherwise
    bool asleep_ = false;      ///< it is closed until the machine is back
};

} // namespace vk
