#include "video/movie_player.h"

#include "video/movie_trap.h"

#include <utility>

namespace vk {

namespace {

constexpr int TickMs = 100;
constexpr int TicksASecond = 10;

} // namespace

MoviePlayer::MoviePlayer(Needs needs, MovieView& view)
    : n_(std::move(needs)), base_(n_.base), view_(view), bars_(base_, view),
      films_({.base = base_,
              .video = n_.video,
              .loudness = n_.loudness,
              .makePlayer = n_.makePlayer,
              .probe = n_.probe,
              .tagOf = n_.tagOf,
              .view = view,
              .bars = bars_,
              .over = [this] { Leave(); }}),
      holds_(base_,
             {.skip =
                  [this](int seconds) {
                      seconds > 0 ? films_.FF_Click(seconds) : films_.RW_Click(-seconds);
                  },
              .turn = [this](bool up) { up ? n_.loudness.VolUp() : n_.loudness.VolDown(); }}),
      volume_(base_, n_.loudness, view), watch_(base_.clock, n_.saver),
      Timer1(base_.clock.MakeTimer([this] { Tick(); })) {}

// Entering and leaving ---------------------------------------------------------------------------

void MoviePlayer::ComeToFront() {
    view_.ShowAtFront();
    base_.screens.HideOthers(MovieScreen);
    n_.loudness.Enter(setting::VideoVolume);
    volume_.Enter();
    Timer1->Start(TickMs);
}

void MoviePlayer::ReShow() {
    TrapMovie(base_, "ReShow", [this] {
        films_.Close();
        base_.screens.CurrentForm = MovieScreen;
        view_.ShowMessage("");
        view_.ShowTitle("");
        view_.ShowTime("");
        view_.ShowLoading(true);
        bars_.Drop();
        ComeToFront();
        films_.LoadPlaylist() ? films_.Play() : doquit();
    });
    n_.loudness.ShowHardwareProblem(); // it waits for an answer, and the film does not
}

void MoviePlayer::ReDisplay() {
    if (!films_.IsOpen()) return ReShow();
    TrapMovie(base_, "ReDisplay", [this] {
        base_.screens.CurrentForm = MovieScreen;
        ComeToFront();
        bars_.Want();
        films_.GoOnAfterWait();
    });
}

void MoviePlayer::switchingform() {
    TrapMovie(base_, "switchingform", [this] {
        films_.SaveVideoData();
        holds_.LetGo();
        Timer1->Stop();
    });
}

void MoviePlayer::doquit() {
    TrapMovie(base_, "doquit", [this] {
        switchingform();
        films_.Close();
        n_.browser.FromMovie = false;
        base_.screens.Show(HomeScreen);
    });
}

void MoviePlayer::Swap() {
    TrapMovie(base_, "Swap", [this] {
        if (!base_.screens.Find("playlists")) return;
        films_.Wait();
        switchingform();
        n_.browser.ListMode = ListFromVideo;
        n_.browser.CurrentPath = base_.settings.values.MediaDir;
        n_.browser.RestoreHistory = true;
        n_.browser.Played = films_.Selected();
        n_.browser.FromPlayer = false;
        n_.browser.FromMovie = films_.IsOpen();
        base_.screens.Show("playlists");
    });
}

// The list has come to its end: back to where it was chosen.
void MoviePlayer::Leave() {
    if (!n_.video.FromBrowser) return doquit();
    films_.SaveVideoData();
    films_.Close();
    Swap();
}

void MoviePlayer::LoadGPS() {
    if (!n_.loadGPS) return;
    n_.loadGPS();
    if (base_.screens.CurrentForm != MovieScreen) films_.Wait();
}

void MoviePlayer::Release() {
    if (!films_.IsOpen() || base_.screens.CurrentForm == MovieScreen) return;
    Timer1->Stop();
    films_.Close();
    n_.browser.FromMovie = false;
}

void MoviePlayer::Form_Unload(bool osShutdown) {
    TrapMovie(base_, "Form_Unload", [&] {
        if (osShutdown)
            base_.log.WriteDebugLog("form unloaded by administrative request - os shutdown");
        films_.SaveVideoData();
        Timer1->Stop();
        films_.Close();
    });
}

void MoviePlayer::DoPause() {
    bars_.Want();
    films_.Paused() ? films_.UnPauseIt() : films_.PauseIt();
}

// Time -------------------------------------------------------------------------------------------

void MoviePlayer::Tick() {
    base_.commands.Run([this] {
        TrapMovie(base_, "Timer1", [this] {
            holds_.Tick(ticks_);
            bars_.Tick(holds_.Any());
            if (++ticks_ >= TicksASecond) EverySecond();
            films_.Tick();
        });
    });
}

void MoviePlayer::EverySecond() {
    ticks_ = 0;
    films_.EverySecond();
    volume_.HideWhenOld(holds_.TurnsVolume());
    watch_.Look(films_.Playing());
    if (n_.checkDaylight) n_.checkDaylight();
    if (base_.settings.values.alwaysontop) base_.window.ForceForegroundWindow();
}

} // namespace vk
