#include "video/film_run.h"

#include "core/text.h"
#include "platform/paths.h"
#include "video/disc/disc_place.h"
#include "video/movie_trap.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr double LeastRewind = 5;

std::string TimeText(double seconds) {
    const int whole = static_cast<int>(seconds);
    const auto two = [](int number) { return (number < 10 ? ":0" : ":") + std::to_string(number); };
    return std::to_string(whole / 3600) + two(whole / 60 % 60) + two(whole % 60);
}

} // namespace

FilmRun::FilmRun(Needs needs)
    : n_(std::move(needs)),
      deck_(n_.base, n_.makePlayer,
            {.picture = [this](auto picture) { PictureCame(std::move(picture)); },
             .tracks = [this] { tracks_.Apply(*deck_.Loaded()); },
             .ended = [this] { FilmEnded(); },
             .failed = [this] { FilmFailed(); }}),
      data_(n_.base.settings, n_.loudness), notices_(n_.view),
      disc_({n_.base, n_.loudness, deck_, [this](const std::string& text) { notices_.Say(text); }}),
      medium_({n_.base.clock, n_.base.volumes, n_.probe, [this] { FilmGone(); }}),
      tracks_(n_.base) {}

void FilmRun::Trap(const char* where, const std::function<void()>& operation) {
    TrapMovie(n_.base, where, operation);
}

// Opening ----------------------------------------------------------------------------------------

bool FilmRun::LoadPlaylist() {
    bool read = true;
    Trap("LoadPlaylist", [&] {
        bPlayDVD = n_.video.PlayDVD;
        failed_ = 0;
        list_.Clear();
        if (bPlayDVD) return;
        read = list_.LoadPlaylist(n_.video.ListFile, n_.video.MovieToSelect);
        if (read && !n_.video.FromBrowser) list_.Find(data_.LastFilm());
    });
    return read;
}

std::string FilmRun::TitleOf(const std::string& path) const {
    const TagRecord tag = n_.tagOf(path);
    if (tag.Title.empty()) return FileNameOf(path);
    return tag.Artist.empty() ? tag.Title : tag.Artist + " - " + tag.Title;
}

void FilmRun::Play() {
    Trap("Play", [this] {
        n_.base.window.ForceForegroundWindow();
        seen_ = finished_ = false;
        notices_.Clear();
        n_.view.ShowPaused(false);
        if (bPlayDVD) return OpenDisc(disc_.Drive(), n_.video.FromBrowser ? 0 : data_.LeftTitle());
        if (list_.Selected().empty()) return FilmFailed();
        OpenSelected();
    });
}

void FilmRun::OpenSelected() {
    const std::string path = list_.Selected();
    if (const std::string disc = DiscOfFile(path); !disc.empty())
        return OpenDisc(disc, data_.LeftAt(path) > 0 ? data_.LeftTitle() : 0);
    tracks_.Enter(path);
    medium_.Watch(path);
    n_.view.ShowTitle(TitleOf(path));
    if (!deck_.Open(path, std::max(wakesAt_, data_.LeftAt(path)))) return FilmFailed();
    ShowPlace();
}

void FilmRun::OpenDisc(const std::string& directory, int title) {
    const double seconds = title > 0 ? data_.LeftAt(list_.Selected()) : 0;
    if (!disc_.Open(directory, {title, seconds})) return FilmFailed();
    tracks_.Enter(disc_.Name());
    medium_.Watch(directory);
    n_.view.ShowTitle("DVD Video: " + disc_.Name());
    ShowPlace();
}

void FilmRun::Close() {
    medium_.Leave();
    disc_.Close();
    deck_.Close();
    n_.view.ShowPicture({});
    notices_.Forget();
    goesOn_ = asleep_ = false;
}

// What is done with it ---------------------------------------------------------------------------

void FilmRun::NextMovie() {
    if (disc_.IsOpen()) return Trap("NextMovie", [this] { disc_.Control().nextchapter(); });
    Trap("NextMovie", [this] {
        list_.Next();
        Close();
        Play();
        n_.bars.Want();
    });
}

void FilmRun::PreviousMovie() {
    if (disc_.IsOpen()) return Trap("PreviousMovie", [this] { disc_.Control().prevchapter(); });
    Trap("PreviousMovie", [this] {
        list_.Previous();
        Close();
        Play();
        n_.bars.Want();
    });
}

void FilmRun::FF_Click(int seconds) {
    Trap("FF_Click", [&] {
        n_.bars.Want();
        if (disc_.IsOpen()) return disc_.Control().ffwd();
        const double to = deck_.Position() + seconds;
        if (to < deck_.Duration()) deck_.Position(to);
        ShowPlace();
    });
}

void FilmRun::RW_Click(int seconds) {
    Trap("RW_Click", [&] {
        n_.bars.Want();
        if (disc_.IsOpen()) return disc_.Control().rwnd();
        const double from = deck_.Position();
        if (from >= LeastRewind) deck_.Position(std::max(0.0, from - seconds));
        ShowPlace();
    });
}

void FilmRun::PauseIt() {
    Trap("PauseIt", [this] {
        if (!deck_.Playing()) return;
        disc_.IsOpen() ? disc_.Pause() : deck_.Pause();
        if (deck_.Paused()) ShowPaused(); // else the disc does not permit it
    });
}

void FilmRun::ShowPaused() {
    n_.view.ShowPaused(true);
    SaveVideoData();
}

void FilmRun::UnPauseIt() {
    Trap("UnPauseIt", [this] {
        if (!deck_.Paused()) return;
        disc_.IsOpen() ? disc_.GoOn() : deck_.Play();
        n_.view.ShowPaused(false);
    });
}

void FilmRun::ShowChoices() {
    MediaPlayer* player = deck_.Loaded();
    if (!player || !deck_.IsOpen()) return;
    TrackMenu::Other menu;
    if (disc_.IsOpen()) menu = {"Menu of the disc", [this] { disc_.Control().menu(); }};
    tracks_.Ask(*player, menu, [this] { return deck_.IsOpen(); });
}

// What it does -----------------------------------------------------------------------------------

void FilmRun::PictureCame(std::shared_ptr<const FilmPicture> picture) {
    if (!std::exchange(seen_, true)) {
        failed_ = 0;
        n_.view.ShowLoading(false);
    }
    n_.view.ShowPicture(std::move(picture));
}

void FilmRun::FilmEnded() {
    if (!seen_ && deck_.Position() <= 0 && deck_.Duration() <= 0) return FilmFailed();
    failed_ = 0;
    finished_ = true;
    GoOn();
}

void FilmRun::FilmFailed() {
    const std::string path = list_.Selected();
    const std::string none = bPlayDVD ? "The disc" : "The list holds no film";
    const std::string name = path.empty() ? none : FileNameOf(path);
    const char* what = path.empty() && !bPlayDVD ? "." : " cannot be played.";
    n_.base.log.WriteDebugLog(ToUtf8(name) + what);
    ++failed_;
    if (seen_) SaveVideoData();
    Close();
    n_.view.ShowLoading(false);
    notices_.Fail(ToUtf8(name) + what);
}

// Its last picture would stand there for ever.
void FilmRun::FilmGone() {
    Trap("FilmGone", [this] {
        constexpr const char* Text = "What is played has been taken out.";
        n_.base.log.WriteDebugLog(Text);
        SaveVideoData();
        Close();
        failed_ = std::max(1, list_.Count()); // nothing else of it is there
        n_.view.ShowLoading(false);
        notices_.Fail(Text);
    });
}

// The next film, where there is one that has not just failed.
void FilmRun::GoOn() {
    Trap("GoOn", [this] {
        SaveVideoData();
        const bool last = list_.AtEnd() || failed_ >= list_.Count();
        last ? list_.First() : list_.Next();
        if (last) return n_.over();
        Close();
        Play();
    });
}

// Waiting, sleeping, keeping ---------------------------------------------------------------------

// Whatever a disc permits.
void FilmRun::Wait() {
    goesOn_ = deck_.Playing();
    if (!goesOn_) return;
    disc_.IsOpen() ? disc_.Control().hold() : deck_.Pause();
    ShowPaused();
}

void FilmRun::GoOnAfterWait() {
    if (std::exchange(goesOn_, false)) UnPauseIt();
}

// What decodes and sounds may not survive the sleep: the film is opened anew after it.
void FilmRun::Suspend() {
    Trap("Suspend", [this] {
        if (!deck_.IsOpen()) return;
        SaveVideoData();
        const bool plays = deck_.Playing() || goesOn_;
        wakesAt_ = static_cast<std::int32_t>(deck_.Position());
        Close();
        asleep_ = true;
        goesOn_ = plays;
    });
}

void FilmRun::Resume() {
    Trap("Resume", [this] {
        if (!std::exchange(asleep_, false)) return;
        const bool plays = std::exchange(goesOn_, false);
        if (n_.base.screens.CurrentForm != MovieScreen) return;
        Play();
        wakesAt_ = 0;
        if (!plays) PauseIt();
    });
}

FilmPlace FilmRun::Place() const {
    return {.index = list_.Index(),
            .path = list_.Selected(),
            .seconds = finished_ ? 0 : static_cast<std::int32_t>(deck_.Position()),
            .serial = n_.video.VolumeSerial,
            .dvd = bPlayDVD,
            .title = disc_.Title()};
}

void FilmRun::SaveVideoData() {
    Trap("SaveVideoData", [this] {
        if (deck_.IsOpen() || finished_) data_.Save(Place());
    });
}

// Time -------------------------------------------------------------------------------------------

void FilmRun::Tick() {
    if (notices_.Tick()) GoOn();
}

void FilmRun::EverySecond() {
    ShowPlace();
    if (deck_.Playing()) SaveVideoData();
}

void FilmRun::ShowPlace() {
    const double duration = deck_.Duration();
    const std::string length = duration > 0 ? " / " + TimeText(duration) : "";
    n_.view.ShowTime(deck_.IsOpen() ? TimeText(deck_.Position()) + length : "");
}

} // namespace vk
