// Discs on the movie player's screen.
#include "tests/video/movie_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {
namespace {

using testing::ElementsAre;

struct MovieDiscTest : testing::Test, MovieFixture {
    MovieDiscTest() {
        app.MakeFolder("cd/VIDEO_TS");
        cd = app.File("cd");
        settings.values.CDDriveLetter = cd;
        volumes.drives = {{cd, DriveType::CdRom}};
        volumes.ready = {cd};
        volumes.labels = {{cd, "HOLIDAY"}};
    }
    /// The disc in the drive, chosen in the browser or gone on with.
    void EnterDisc(bool fromBrowser = true) {
        Make();
        video = {.PlayDVD = true, .ListFile = {}, .VolumeSerial = 5, .FromBrowser = fromBrowser};
        player->ReShow();
    }
    FakeMediaPlayer& Disc() { return static_cast<FakeMediaPlayer&>(*film.player); }
    void Keys(std::initializer_list<const char*> codes) {
        for (const char* code : codes)
            hands->Form_KeyDown(code);
    }
    std::string cd;
};

TEST_F(MovieDiscTest, KeysAndTouchesAreTheDiscsInItsMenu) {
    EnterDisc();
    EXPECT_EQ(film.path, cd);
    EXPECT_EQ(view.title, "DVD Video: HOLIDAY");
    Disc().Enter(0);
    keys[Action::FF] = "70";
    Keys({"38", "40", "70", "37", "39", "13"});
    hands->PicturePlaced(0, 0, 800, 480);
    hands->PictureTouched(400, 240, 800, 480);
    EXPECT_EQ(view.bars, 1) << "they come in besides";
    EXPECT_THAT(film.done, ElementsAre("key 0", "key 1", "key 2", "key 3", "key 4", "touch 50 50"));
    film.done.clear();
    Disc().Enter(1);
    film.position = 50;
    Keys({"39", "38"});
    Films().NextMovie();
    Films().PreviousMovie();
    EXPECT_EQ(film.position, 60);
    EXPECT_THAT(film.done, ElementsAre("key 0", "next", "previous"));
    film.forbidden = uop::NextChapter | uop::PauseOn;
    Films().NextMovie();
    Keys({"13"});
    EXPECT_EQ(view.message, "The disc does not permit this here.");
    EXPECT_FALSE(view.paused);
    Seconds(3);
    EXPECT_EQ(view.message, "");
    film.forbidden = 0;
    Keys({"13"});
    EXPECT_TRUE(view.paused);
    Keys({"13"});
    EXPECT_EQ(film.opened.size(), 1u) << "it goes on where it was";
    dialogs.choices = {0};
    Films().ShowChoices();
    EXPECT_EQ(film.done.back(), "menu");
    film.player->onEnded();
    EXPECT_EQ(browser.Count("ReShow"), 1) << "back to its row";
}

TEST_F(MovieDiscTest, ADiscGoesOnInItsTitleFromTheMenuAndBeginsAnewFromTheBrowser) {
    EnterDisc();
    Disc().Enter(2);
    Shown(42);
    player->doquit();
    EXPECT_EQ(Saved("PlayDVD") + Saved("CurrentTitle") + Saved("CurrentPosition"), "true242");
    for (const bool fromBrowser : {false, true}) {
        film.done.clear();
        EnterDisc(fromBrowser);
        Disc().Enter(0);
        EXPECT_EQ(film.done.empty(), fromBrowser);
        EXPECT_EQ(film.position, fromBrowser ? 0 : 42);
        player->doquit();
    }
}

TEST_F(MovieDiscTest, AnImageOfAListIsADisc) {
    app.Write("z.iso", "image");
    app.Write(VideoListName, app.File("a.mpg") + "\r\n" + app.File("z.iso") + "\r\n");
    Enter(2, true);
    EXPECT_EQ(film.path, app.File("z.iso"));
    Disc().Enter(0);
    Keys({"40"});
    EXPECT_THAT(film.done, ElementsAre("key 1"));
}

TEST_F(MovieDiscTest, WhatIsTakenOutEndsInAMessageAndOnTheWayBack) {
    for (const bool disc : {true, false}) {
        disc ? EnterDisc() : Enter(1, true);
        Shown(7);
        Seconds(10);
        EXPECT_EQ(view.message, "");
        probe.answer = false;
        Seconds(2);
        EXPECT_EQ(view.message, "What is played has been taken out.");
        EXPECT_FALSE(Films().IsOpen());
        EXPECT_EQ(Saved("CurrentPosition"), "7");
        Seconds(4);
        EXPECT_EQ(browser.Count("ReShow"), disc ? 1 : 2);
        probe.answer = true;
    }
}

TEST_F(MovieDiscTest, WhatIsNoDiscIsSaid) {
    std::filesystem::remove_all(app.File("cd/VIDEO_TS"));
    EnterDisc();
    EXPECT_EQ(view.message, "The disc cannot be played.");
    EXPECT_TRUE(Logged("No valid DVD codec detected."));
}

} // namespace
} // namespace vk::test
