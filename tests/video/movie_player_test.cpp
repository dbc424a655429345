// The movie player's logic: lists of films, positions, bars, failures.
#include "tests/support/action_table.h"
#include "tests/video/movie_fixture.h"

namespace vk::test {
namespace {

using testing::ElementsAre;

struct MovieTest : testing::Test, MovieFixture {};

TEST_F(MovieTest, AListIsPlayedFilmByFilmRoundAndRound) {
    Enter(2);
    EXPECT_TRUE(view.loading);
    EXPECT_EQ(view.title, "Someone - Second");
    Shown(0);
    EXPECT_FALSE(view.loading);
    EXPECT_TRUE(view.picture);
    Films().NextMovie();
    EXPECT_EQ(view.title, "c.mpg");
    EXPECT_FALSE(view.picture) << "no picture of the film before";
    Films().NextMovie();
    Films().PreviousMovie();
    Shown(0);
    Films().PreviousMovie();
    Shown(1);
    film.player->onEnded();
    EXPECT_THAT(film.opened,
                ElementsAre("b.mpg@0", "c.mpg@0", "a.mpg@0", "c.mpg@0", "b.mpg@0", "c.mpg@0"));
}

TEST_F(MovieTest, AListThatEndsLeadsBackToWhereItWasChosen) {
    for (const bool fromBrowser : {false, true}) {
        Enter(3, fromBrowser);
        Shown(99);
        film.player->onEnded();
        EXPECT_EQ(browser.Count("ReShow"), fromBrowser ? 1 : 0);
        EXPECT_EQ(menu.Count("ReShow"), 1);
        EXPECT_EQ(film.path, "") << "its memory is let go";
        EXPECT_EQ(Saved("SelectedMovie") + " " + Saved("CurrentPosition"), "0 0");
    }
    EXPECT_TRUE(browsed.RestoreHistory);
    EXPECT_EQ(browsed.ListMode, ListFromVideo);
    EXPECT_FALSE(browsed.FromMovie) << "there is no film to go back to";
}

TEST_F(MovieTest, WithoutAListTheScreenIsLeftAtOnce) {
    std::filesystem::remove(app.File(VideoListName));
    Enter();
    EXPECT_EQ(menu.Count("ReShow"), 1);
    EXPECT_THAT(film.opened, ElementsAre());
}

TEST_F(MovieTest, ForwardAndRewindStayInsideTheFilm) {
    struct Step {
        double from;
        void (MovieKeys::*step)();
        double to;
    };
    Enter();
    for (const Step& step : {Step{4, &MovieKeys::MoveBack, 4},
                             {5, &MovieKeys::MoveBack, 0},
                             {30, &MovieKeys::MoveBack, 20},
                             {30, &MovieKeys::MoveAhead, 40},
                             {89, &MovieKeys::MoveAhead, 99},
                             {90, &MovieKeys::MoveAhead, 90}}) {
        Shown(step.from);
        ((*hands).*step.step)();
        EXPECT_EQ(film.position, step.to) << step.from;
    }
    EXPECT_EQ(view.time, "0:01:30 / 0:01:40");
}

TEST_F(MovieTest, AHeldButtonGoesThroughTheFilmAndATapIsOneStep) {
    film.duration = 1000;
    Enter();
    player->holds().Press(HeldForward);
    Seconds(1);
    player->holds().Release(true);
    EXPECT_EQ(film.position, 60) << "after TSRepeatVal ticks 30 seconds, every third tick";
    player->holds().Press(HeldForward);
    player->holds().Release(true);
    EXPECT_EQ(film.position, 70);
    player->holds().Press(HeldRewind);
    player->holds().Release(false);
    EXPECT_EQ(film.position, 70) << "let go beside it";
}

// A kill takes no leave: what counts is what was written by then.
TEST_F(MovieTest, ThePositionIsKeptToTheSecondWhateverHappens) {
    const std::vector<std::pair<const char*, std::function<void()>>> ends = {
        {"kill", [this] { Seconds(1); }},
        {"quit", [this] { player->doquit(); }},
        {"pause", [this] { Films().PauseIt(); }},
        {"to the browser", [this] { player->Swap(); }},
        {"sleep", [this] { Films().Suspend(); }},
        {"the end of the system", [this] { player->Form_Unload(true); }}};
    double at = 10;
    for (const auto& [how, end] : ends) {
        Enter(2);
        Shown(at += 7.25);
        end();
        EXPECT_EQ(Saved("CurrentPosition"), std::to_string(static_cast<int>(at))) << how;
        EXPECT_EQ(Saved("SelectedMovie"), "1") << how;
        Restart();
        Enter(2);
        EXPECT_EQ(LastOpened(), "b.mpg@" + std::to_string(static_cast<int>(at))) << how;
        Restart();
    }
    EXPECT_TRUE(Logged("form unloaded by administrative request - os shutdown"));
}

TEST_F(MovieTest, OnlyTheFilmThatWasLeftBeginsThere) {
    Enter(2);
    Shown(40);
    Seconds(1);
    app.Write(VideoListName, app.File("c.mpg") + "\n" + app.File("b.mpg") + "\n");
    Enter(2);
    EXPECT_EQ(LastOpened(), "b.mpg@40") << "where the menu leads to, though the list has changed";
    Enter(1, true);
    EXPECT_EQ(LastOpened(), "c.mpg@0");
    Shown(50);
    film.player->onEnded();
    Enter(1, true);
    EXPECT_EQ(LastOpened(), "c.mpg@0") << "it was seen to its end";
    Shown(30);
    settings.values.DoResume = false;
    Enter(1, true);
    EXPECT_EQ(LastOpened(), "c.mpg@0");
}

TEST_F(MovieTest, AFilmThatCannotBePlayedIsToldAndPassedOver) {
    Enter(1, true);
    film.player->onFailed();
    EXPECT_EQ(view.message, "a.mpg cannot be played.");
    EXPECT_FALSE(view.loading);
    Seconds(3);
    EXPECT_EQ(view.message, "");
    EXPECT_EQ(LastOpened(), "b.mpg@0");
    film.duration = 0;
    film.player->onEnded(); // at once, and without a picture: what random bytes come to
    EXPECT_EQ(view.message, "b.mpg cannot be played.");
    Seconds(3);
    film.player->onFailed();
    Seconds(4);
    EXPECT_EQ(film.opened.size(), 3u) << "all have failed: no second round";
    EXPECT_EQ(browser.Count("ReShow"), 1);
}

TEST_F(MovieTest, WhatFailsOnItsWayKeepsItsPlace) {
    Enter();
    Shown(33);
    film.player->onFailed();
    EXPECT_EQ(Saved("CurrentPosition"), "33");
}

TEST_F(MovieTest, WithoutAPlayerItIsSaidOnceInTheLog) {
    film.missing = true;
    Enter();
    Seconds(12);
    EXPECT_EQ(LinesLogged("No player of films: nothing to play with"), 1);
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(MovieTest, TheBarsComeWhenTouchedAndGoByThemselves) {
    Enter();
    EXPECT_EQ(view.bars, 0);
    hands->PictureTouched(400, 200, 800, 480);
    EXPECT_EQ(view.bars, 1);
    clock.Advance(4000);
    EXPECT_EQ(view.bars, 1);
    std::vector<double> seen;
    for (int tick = 41; tick <= 45; ++tick) {
        clock.Advance(100);
        seen.push_back(view.bars);
    }
    EXPECT_TRUE(std::ranges::is_sorted(seen, std::greater<>()));
    EXPECT_LT(seen.front(), 1);
    EXPECT_EQ(seen.back(), 0);
    hands->PictureTouched(400, 200, 800, 480);
    player->bars().Hold(true);
    Seconds(20);
    EXPECT_EQ(view.bars, 1) << "worked by keys";
    player->bars().Hold(false);
    Seconds(5);
    EXPECT_EQ(view.bars, 0);
}

TEST_F(MovieTest, WithoutBarsATouchPausesAndACornerLeads0ut) {
    settings.values.MovShowBar = false;
    Enter();
    hands->PictureTouched(400, 200, 800, 480);
    EXPECT_EQ(film.state, PlayStateValue::Paused);
    EXPECT_TRUE(view.paused);
    hands->MoveAhead();
    Seconds(1);
    EXPECT_EQ(view.bars, 0);
    hands->PictureTouched(790, 10, 800, 480);
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(MovieTest, TheLoudnessIsThatOfTheWholeSystem) {
    settings.values.UseSplitVolume = true;
    settings.values.mutespeed = 1;
    sound.mixer.Level(MixerLine::Master) = 500;
    Enter();
    hands->Wheel(1);
    EXPECT_EQ(view.volume, "     Volume : 56%")
        << "three steps a tick, whatever MouseFunction says";
    Shown(1);
    Seconds(1);
    EXPECT_EQ(Saved("Volume"), "560");
    Seconds(4);
    EXPECT_EQ(view.volume, "");
    hands->domute();
    Seconds(1);
    EXPECT_EQ(view.volume, "     Muted");
    EXPECT_TRUE(sound.volume.VolumeMute());
}

TEST_F(MovieTest, ToTheBrowserAndBackTheFilmWaits) {
    Enter();
    Shown(20);
    player->Swap();
    EXPECT_EQ(film.state, PlayStateValue::Paused);
    EXPECT_TRUE(browsed.FromMovie && browsed.RestoreHistory);
    EXPECT_EQ(browsed.Played, app.File("a.mpg"));
    EXPECT_EQ(browser.Count("ReShow"), 1);
    player->ReDisplay();
    EXPECT_EQ(film.state, PlayStateValue::Playing);
    Films().PauseIt();
    player->Swap();
    player->ReDisplay();
    EXPECT_EQ(film.state, PlayStateValue::Paused) << "the user paused it";
    EXPECT_EQ(film.opened.size(), 1u);
    player->Swap();
    screens.CurrentForm = "playmp3";
    player->Release();
    EXPECT_EQ(film.path, "") << "something else is in front for good";
    EXPECT_FALSE(browsed.FromMovie);
}

TEST_F(MovieTest, UnderTheMapTheFilmWaitsAndKeepsNobodyAwake) {
    map = true;
    Enter();
    Shown(20);
    player->LoadGPS();
    EXPECT_EQ(film.state, PlayStateValue::Paused);
    film.position = 30;
    saver.resets = 0;
    Seconds(60);
    EXPECT_EQ(saver.resets, 0);
    EXPECT_EQ(Saved("CurrentPosition"), "20");
    player->ReDisplay();
    EXPECT_EQ(film.state, PlayStateValue::Playing);
    Seconds(1);
    EXPECT_EQ(saver.resets, 1);
}

TEST_F(MovieTest, SleepClosesTheFilmAndWakingOpensItThere) {
    for (const bool paused : {false, true}) {
        settings.values.DoResume = paused;
        Enter();
        Shown(15);
        if (paused) Films().PauseIt();
        Films().Suspend();
        EXPECT_EQ(film.path, "");
        Films().Resume();
        EXPECT_EQ(LastOpened(), "a.mpg@15");
        EXPECT_EQ(film.state == PlayStateValue::Paused, paused);
    }
}

TEST_F(MovieTest, TheDisplayStaysAwakeWhileSomebodyWatches) {
    Enter();
    Seconds(3600);
    EXPECT_EQ(saver.resets, 3600 / 30);
    EXPECT_EQ(daylightChecks, 3600);
    Films().PauseIt();
    saver.resets = 0;
    Seconds(3600);
    EXPECT_EQ(saver.resets, 600 / 30) << "ten minutes of pause";
    Films().UnPauseIt();
    Seconds(31);
    EXPECT_EQ(saver.resets, 600 / 30 + 2) << "at once, and again half a minute later";
}

TEST_F(MovieTest, EveryActionHasItsOperation) {
    sound.mixer.Level(MixerLine::Master) = 500;
    Enter();
    const auto effect = [this] {
        std::string done;
        if (film.state == PlayStateValue::Paused) done += "paused ";
        if (film.position != 50) done += film.position > 50 ? "ahead " : "back ";
        if (!film.opened.empty()) done = LastOpened().substr(0, 1) + " ";
        if (menu.Count("ReShow") > 0) done = "menu ";
        if (browser.Count("ReShow") > 0) done = "browser ";
        const auto level = sound.volume.VolumeLevel();
        if (sound.loudness.Fading())
            done = "mute ";
        else if (level != 500)
            done += level > 500 ? "louder " : "quieter ";
        sound.loudness.Unload();
        sound.volume.VolumeMute(false);
        if (sound.loudness.Muted()) sound.loudness.domute(), sound.loudness.Unload();
        sound.volume.VolumeLevel(500);
        menu.calls.clear();
        browser.calls.clear();
        Enter(2);
        film.opened.clear();
        film.position = 50;
        return done;
    };
    effect();
    ExpectTable(*hands, keys,
                {{Action::quit, "menu "},
                 {Action::pause, "paused "},
                 {Action::play, ""},
                 {Action::REW, "back "},
                 {Action::FF, "ahead "},
                 {Action::SWMP, "browser "},
                 {Action::ok, "paused "},
                 {Action::vup, "louder "},
                 {Action::Vdown, "quieter "},
                 {Action::up, "louder "},
                 {Action::down, "quieter "},
                 {Action::back, "back "},
                 {Action::forward, "ahead "},
                 {Action::pageup, "a "},
                 {Action::pagedown, "c "},
                 {Action::mute, "mute "},
                 {Action::gps, ""}},
                effect);
}

} // namespace
} // namespace vk::test
