// The movie player's logic wired on fakes, with three films on a list.
#pragma once

#include "tests/support/core_fixture.h"
#include "tests/support/fake_media_player.h"
#include "tests/support/machine_fakes.h"
#include "tests/support/recording_screen.h"
#include "tests/support/sound_card.h"
#include "video/movie_keys.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace vk::test {

/// Keeps what was last shown of each kind.
struct RecordingMovieView : MovieView {
    void ShowPicture(std::shared_ptr<const FilmPicture> is) override { picture = std::move(is); }
    void ShowLoading(bool shown) override { loading = shown; }
    void ShowTitle(const std::string& text) override { title = text; }
    void ShowTime(const std::string& text) override { time = text; }
    void ShowVolume(const std::string& text) override { volume = text; }
    void ShowMessage(const std::string& text) override { message = text; }
    void ShowPaused(bool is) override { paused = is; }
    void ShowBars(double is) override { bars = is; }
    void ShowAtFront() override { ++shows; }

    std::shared_ptr<const FilmPicture> picture;
    std::string title, time, volume, message;
    bool loading = false, paused = false;
    double bars = 0;
    int shows = 0;
};

struct MovieFixture : CoreFixture {
    MovieFixture() {
        settings.values.DoResume = settings.values.MovShowBar = true;
        settings.values.MouseIncrement = 3;
        settings.values.TSRepeatVal = 4;
        for (const char* name : {"a.mpg", "b.mpg", "c.mpg"})
            films += app.Write(name, "film") + "\r\n";
        app.Write(VideoListName, "# comment\r\n" + films + app.File("gone.mpg") + "\r\n");
        screens.Add(HomeScreen, menu);
        screens.Add("playlists", browser);
    }
    MoviePlayer::Needs Needs() {
        return {.base = base,
                .video = video,
                .browser = browsed,
                .loudness = sound.loudness,
                .saver = saver,
                .makePlayer = [this](std::string& reason) -> std::unique_ptr<MediaPlayer> {
                    reason = "nothing to play with";
                    if (film.missing) return nullptr;
                    return std::make_unique<FakeMediaPlayer>(film);
                },
                .probe = probe,
                .tagOf =
                    [](const std::string& path) {
                        TagRecord tag;
                        if (path.ends_with("b.mpg")) tag.Title = "Second", tag.Artist = "Someone";
                        return tag;
                    },
                .loadGPS =
                    [this] {
                        if (map) player->switchingform(), screens.CurrentForm = "frmGPS";
                    },
                .checkDaylight = [this] { ++daylightChecks; }};
    }
    void Make() {
        if (player) return;
        player = std::make_unique<MoviePlayer>(Needs(), view);
        hands = std::make_unique<MovieKeys>(MovieKeys::Needs{base, *player, sound.loudness, keys});
    }
    FilmRun& Films() { return player->films(); }
    /// Enters the screen anew, with the entry of that number.
    void Enter(std::int32_t entry = 1, bool fromBrowser = false) {
        Make();
        video = {.ListFile = settings.File(VideoListName),
                 .MovieToSelect = entry,
                 .FromBrowser = fromBrowser};
        player->ReShow();
    }
    /// The system ends hard and starts again.
    void Restart() {
        player.reset();
        film = FakeFilm{};
    }
    /// The film shows a picture, and stands there.
    void Shown(double seconds) {
        film.player->onPicture();
        film.position = seconds;
    }
    void Seconds(int seconds) { clock.Advance(seconds * 1000); }
    std::string LastOpened() const { return film.opened.empty() ? "" : film.opened.back(); }
    std::string Saved(const char* key) { return settings.Read("video_player", key); }

    std::string films;
    int daylightChecks = 0;
    bool map = false; ///< there is one to be shown over the film
    VideoState video;
    BrowserState browsed;
    SoundCard sound{*this};
    KeyMap keys;
    FakeScreenSaver saver;
    FakeMediumProbe probe;
    FakeFilm film;
    RecordingScreen menu, browser;
    RecordingMovieView view;
    std::unique_ptr<MoviePlayer> player;
    std::unique_ptr<MovieKeys> hands;
};

} // namespace vk::test
