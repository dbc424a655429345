#include "video/movie_player.h"

#include "core/text.h"
#include "platform/paths.h"
#include "video/disc/disc_place.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr const char* FormName = "playmovie";
constexpr int TickMs = 100;
constexpr int TicksASecond = 10;
constexpr int MessageTicks = 30; // how long is told that a film cannot be played
constexpr int NoticeTicks = 20;
constexpr double LeastRewind = 5;

} // namespace

MoviePlayer::MoviePlayer(Needs needs, MovieView& view)
    : n_(std::move(needs)), base_(n_.base), view_(view),
      deck_(base_, n_.makePlayer,
            {.picture = [this](auto picture) { PictureCame(std::move(picture)); },
             .tracks = [this] { tracks_.Apply(*deck_.Loaded()); },
             .ended = [this] { FilmEnded(); },
             .failed = [this] { FilmFailed(); }}),
      data_(base_.settings, n_.loudness), volume_(base_, n_.loudness, view),
      watch_(base_.clock, n_.saver),
      disc_({base_, n_.loudness, deck_, [this](const std::string& text) { Notice(text); }}),
      medium_({base_.clock, base_.volumes, n_.probe, [this] { FilmGone(); }}), tracks_(base_),
      Timer1(base_.clock.MakeTimer([this] { Tick(); })) {}

void MoviePlayer::Log(const char* where, const std::function<void()>& operation) {
    TrapAndLog(base_.report, std::string("An error occured in playmovie.") + where + " ",
               operation);
}

// Entering and leaving ---------------------------------------------------------------------------

void MoviePlayer::ReShow() {
    Log("ReShow", [this] {
        CloseFilm();
        base_.screens.CurrentForm = FormName;
        view_.ShowMessage("");
        view_.ShowTitle("");
        view_.ShowTime("");
        view_.ShowLoading(true);
        bars_.Drop();
        ShowBars();
        view_.ShowAtFront();
        base_.screens.HideOthers(FormName);
        n_.loudness.Enter(setting::VideoVolume);
        volume_.Enter();
        bPlayDVD = n_.video.PlayDVD;
        failed_ = 0;
        Timer1->Start(TickMs);
        LoadPlaylist();
        if (base_.screens.CurrentForm == FormName) Play();
    });
    n_.loudness.ShowHardwareProblem(); // it waits for an answer, and the film does not
}

void MoviePlayer::ReDisplay() {
    if (!deck_.IsOpen()) return ReShow();
    Log("ReDisplay", [this] {
        base_.screens.CurrentForm = FormName;
        view_.ShowAtFront();
        base_.screens.HideOthers(FormName);
        n_.loudness.Enter(setting::VideoVolume);
        volume_.Enter();
        Timer1->Start(TickMs);
        WantBars();
        if (std::exchange(goesOn_, false)) UnPauseIt();
    });
}

void MoviePlayer::switchingform() {
    Log("switchingform", [this] {
        SaveVideoData();
        held_.Press(HeldNone);
        Timer1->Stop();
    });
}

void MoviePlayer::doquit() {
    Log("doquit", [this] {
        switchingform();
        CloseFilm();
        n_.browser.FromMovie = false;
        base_.screens.Show(HomeScreen);
    });
}

void MoviePlayer::Swap() {
    Log("Swap", [this] {
        if (!base_.screens.Find("playlists")) return;
        Wait();
        switchingform();
        n_.browser.ListMode = ListFromVideo;
        n_.browser.CurrentPath = base_.settings.values.MediaDir;
        n_.browser.RestoreHistory = true;
        n_.browser.Played = list_.Selected();
        n_.browser.FromPlayer = false;
        n_.browser.FromMovie = deck_.IsOpen();
        base_.screens.Show("playlists");
    });
}

// The list has come to its end: back to where it was chosen.
void MoviePlayer::Leave() {
    if (!n_.video.FromBrowser) return doquit();
    SaveVideoData();
    CloseFilm();
    Swap();
}

// Nobody sees the film until the screen is back, whatever a disc permits.
void MoviePlayer::Wait() {
    goesOn_ = deck_.Playing();
    if (!goesOn_) return;
    disc_.IsOpen() ? disc_.Control().hold() : deck_.Pause();
    ShowPaused();
}

void MoviePlayer::Release() {
    if (!deck_.IsOpen() || base_.screens.CurrentForm == FormName) return;
    Timer1->Stop();
    CloseFilm();
    n_.browser.FromMovie = false;
}

void MoviePlayer::CloseFilm() {
    medium_.Leave();
    disc_.Close();
    deck_.Close();
    view_.ShowPicture({});
    messageTicks_ = 0;
    goesOn_ = asleep_ = false;
}

void MoviePlayer::Form_Unload(bool osShutdown) {
    Log("Form_Unload", [&] {
        if (osShutdown)
            base_.log.WriteDebugLog("form unloaded by administrative request - os shutdown");
        SaveVideoData();
        Timer1->Stop();
        CloseFilm();
    });
}

// What decodes and sounds may not survive the sleep: the film is opened anew after it.
void MoviePlayer::Suspend() {
    Log("Suspend", [this] {
        if (!deck_.IsOpen()) return;
        SaveVideoData();
        const bool plays = deck_.Playing() || goesOn_;
        wakesAt_ = static_cast<std::int32_t>(deck_.Position());
        CloseFilm();
        asleep_ = true;
        goesOn_ = plays;
    });
}

void MoviePlayer::Resume() {
    Log("Resume", [this] {
        if (!std::exchange(asleep_, false)) return;
        const bool plays = std::exchange(goesOn_, false);
        if (base_.screens.CurrentForm != FormName) return;
        Play();
        wakesAt_ = 0;
        if (!plays) PauseIt();
    });
}

// Films ------------------------------------------------------------------------------------------

void MoviePlayer::LoadPlaylist() {
    Log("LoadPlaylist", [this] {
        list_.Clear();
        if (bPlayDVD) return;
        if (!list_.LoadPlaylist(n_.video.ListFile, n_.video.MovieToSelect)) return doquit();
        if (!n_.video.FromBrowser) list_.Find(data_.LastFilm());
    });
}

std::string MoviePlayer::TitleOf(const std::string& path) const {
    const TagRecord tag = n_.tagOf(path);
    if (tag.Title.empty()) return FileNameOf(path);
    return tag.Artist.empty() ? tag.Title : tag.Artist + " - " + tag.Title;
}

void MoviePlayer::Play() {
    Log("Play", [this] {
        base_.window.ForceForegroundWindow();
        seen_ = finished_ = false;
        messageTicks_ = 0;
        view_.ShowMessage("");
        view_.ShowPaused(false);
        if (bPlayDVD) return OpenDisc(disc_.Drive(), n_.video.FromBrowser ? 0 : data_.LeftTitle());
        if (list_.Selected().empty()) return FilmFailed();
        OpenSelected();
    });
}

void MoviePlayer::OpenSelected() {
    const std::string path = list_.Selected();
    if (const std::string disc = DiscOfFile(path); !disc.empty())
        return OpenDisc(disc, data_.LeftAt(path) > 0 ? data_.LeftTitle() : 0);
    tracks_.Enter(path);
    medium_.Watch(path);
    view_.ShowTitle(TitleOf(path));
    if (!deck_.Open(path, std::max(wakesAt_, data_.LeftAt(path)))) return FilmFailed();
    ShowPlace();
}

void MoviePlayer::OpenDisc(const std::string& directory, int title) {
    const double seconds = title > 0 ? data_.LeftAt(list_.Selected()) : 0;
    if (!disc_.Open(directory, {title, seconds})) return FilmFailed();
    tracks_.Enter(disc_.Name());
    medium_.Watch(directory);
    view_.ShowTitle("DVD Video: " + disc_.Name());
    ShowPlace();
}

// Its last picture would stand there for ever.
void MoviePlayer::FilmGone() {
    Log("FilmGone", [this] {
        constexpr const char* Text = "What is played has been taken out.";
        base_.log.WriteDebugLog(Text);
        SaveVideoData();
        CloseFilm();
        failed_ = std::max(1, list_.Count()); // nothing else of it is there
        view_.ShowLoading(false);
        view_.ShowMessage(Text);
        messageTicks_ = MessageTicks;
    });
}

void MoviePlayer::Notice(const std::string& text) {
    view_.ShowMessage(text);
    noticeTicks_ = NoticeTicks;
}

void MoviePlayer::NextMovie() {
    if (disc_.IsOpen()) return Log("NextMovie", [this] { disc_.Control().nextchapter(); });
    Log("NextMovie", [this] {
        list_.Next();
        CloseFilm();
        Play();
        WantBars();
    });
}

void MoviePlayer::PreviousMovie() {
    if (disc_.IsOpen()) return Log("PreviousMovie", [this] { disc_.Control().prevchapter(); });
    Log("PreviousMovie", [this] {
        list_.Previous();
        CloseFilm();
        Play();
        WantBars();
    });
}

void MoviePlayer::FF_Click(int seconds) {
    Log("FF_Click", [&] {
        WantBars();
        if (disc_.IsOpen()) return disc_.Control().ffwd();
        const double to = deck_.Position() + seconds;
        if (to < deck_.Duration()) deck_.Position(to);
        ShowPlace();
    });
}

void MoviePlayer::RW_Click(int seconds) {
    Log("RW_Click", [&] {
        WantBars();
        if (disc_.IsOpen()) return disc_.Control().rwnd();
        const double from = deck_.Position();
        if (from >= LeastRewind) deck_.Position(std::max(0.0, from - seconds));
        ShowPlace();
    });
}

void MoviePlayer::PauseIt() {
    Log("PauseIt", [this] {
        if (!deck_.Playing()) return;
        disc_.IsOpen() ? disc_.Pause() : deck_.Pause();
        if (deck_.Paused()) ShowPaused(); // else the disc does not permit it
    });
}

void MoviePlayer::ShowPaused() {
    view_.ShowPaused(true);
    SaveVideoData();
}

void MoviePlayer::UnPauseIt() {
    Log("UnPauseIt", [this] {
        if (!deck_.Paused()) return;
        disc_.IsOpen() ? disc_.GoOn() : deck_.Play();
        view_.ShowPaused(false);
    });
}

void MoviePlayer::PictureCame(std::shared_ptr<const FilmPicture> picture) {
    if (!std::exchange(seen_, true)) {
        failed_ = 0;
        view_.ShowLoading(false);
    }
    view_.ShowPicture(std::move(picture));
}

void MoviePlayer::FilmEnded() {
    if (!seen_ && deck_.Position() <= 0 && deck_.Duration() <= 0) return FilmFailed();
    failed_ = 0;
    finished_ = true;
    GoOn();
}

void MoviePlayer::FilmFailed() {
    const std::string path = list_.Selected();
    const std::string none = bPlayDVD ? "The disc" : "The list holds no film";
    const std::string name = path.empty() ? none : FileNameOf(path);
    const char* what = path.empty() && !bPlayDVD ? "." : " cannot be played.";
    base_.log.WriteDebugLog(ToUtf8(name) + what);
    ++failed_;
    if (seen_) SaveVideoData();
    CloseFilm();
    view_.ShowLoading(false);
    view_.ShowMessage(ToUtf8(name) + what);
    messageTicks_ = MessageTicks;
}

// The next film, where there is one that has not just failed.
void MoviePlayer::GoOn() {
    Log("GoOn", [this] {
        SaveVideoData();
        const bool last = list_.AtEnd() || failed_ >= list_.Count();
        last ? list_.First() : list_.Next();
        if (last) return Leave();
        CloseFilm();
        Play();
    });
}

// Keeping ----------------------------------------------------------------------------------------

FilmPlace MoviePlayer::Place() const {
    return {.index = list_.Index(),
            .path = list_.Selected(),
            .seconds = finished_ ? 0 : static_cast<std::int32_t>(deck_.Position()),
            .serial = n_.video.VolumeSerial,
            .dvd = bPlayDVD,
            .title = disc_.Title()};
}

void MoviePlayer::SaveVideoData() {
    Log("SaveVideoData", [this] {
        if (deck_.IsOpen() || finished_) data_.Save(Place());
    });
}

// Time -------------------------------------------------------------------------------------------

void MoviePlayer::Tick() {
    base_.commands.Run([this] {
        Log("Timer1", [this] {
            DoHeld(held_.Tick(base_.settings.values.TSRepeatVal));
            bars_.Tick(barsHeld_ || held_.Action() != HeldNone);
            ShowBars();
            if (++ticks_ >= TicksASecond) EverySecond();
            if (noticeTicks_ > 0 && --noticeTicks_ == 0 && messageTicks_ == 0)
                view_.ShowMessage("");
            if (messageTicks_ > 0 && --messageTicks_ == 0) GoOn();
        });
    });
}

void MoviePlayer::EverySecond() {
    ticks_ = 0;
    ShowPlace();
    volume_.HideWhenOld(held_.Action() == HeldVolUp || held_.Action() == HeldVolDown);
    watch_.Look(deck_.Playing());
    if (n_.checkDaylight) n_.checkDaylight();
    if (base_.settings.values.alwaysontop) base_.window.ForceForegroundWindow();
    if (deck_.Playing()) SaveVideoData();
}

namespace {

std::string TimeText(double seconds) {
    const int whole = static_cast<int>(seconds);
    const auto two = [](int number) { return (number < 10 ? ":0" : ":") + std::to_string(number); };
    return std::to_string(whole / 3600) + two(whole / 60 % 60) + two(whole % 60);
}

} // namespace

void MoviePlayer::ShowPlace() {
    const double duration = deck_.Duration();
    const std::string length = duration > 0 ? " / " + TimeText(duration) : "";
    view_.ShowTime(deck_.IsOpen() ? TimeText(deck_.Position()) + length : "");
}

void MoviePlayer::WantBars() {
    bars_.Want();
    ShowBars();
}

void MoviePlayer::ShowBars() {
    const double in = BarsOffered() ? bars_.In() : 0;
    if (in != std::exchange(in_, in)) view_.ShowBars(in);
}

void MoviePlayer::HoldBars(bool on) {
    barsHeld_ = on;
    if (on) WantBars();
}

void MoviePlayer::ShowChoices() {
    MediaPlayer* player = deck_.Loaded();
    if (!player || !deck_.IsOpen()) return;
    TrackMenu::Other menu;
    if (disc_.IsOpen()) menu = {"Menu of the disc", [this] { disc_.Control().menu(); }};
    tracks_.Ask(*player, menu, [this] { return deck_.IsOpen(); });
}

void MoviePlayer::LoadGPS() {
    if (!n_.loadGPS) return;
    n_.loadGPS();
    if (base_.screens.CurrentForm != FormName) Wait();
}

} // namespace vk
