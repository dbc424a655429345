#include "tests/playback/audio_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vk::test {

using testing::ElementsAre;

struct AudioPlayerTest : testing::Test, AudioFixture {
    std::string Shuffle() { return ini.ReadText(app.File("winamp.ini"), "winamp", "shuffle"); }
};

TEST_F(AudioPlayerTest, EntersWithClockTimerAndFrame) {
    Play(3);
    EXPECT_EQ(screens.CurrentForm, "playmp3");
    EXPECT_TRUE(view.frame);
    EXPECT_EQ(view.shows, 1);
    EXPECT_THAT(view.clocks, ElementsAre("Saturday, November 21, 2026    12:0"));
    clock.Advance(500);
    EXPECT_EQ(view.time, "TrackTime: 2:59");
    clock.Advance(30000);
    EXPECT_EQ(view.clocks.size(), 1u); // written only when it has changed
    clock.Advance(30000);
    EXPECT_EQ(view.clocks.size(), 2u);
}

TEST_F(AudioPlayerTest, TracksTimeEachSecondGoneOrLeft) {
    Play(3);
    clock.Advance(5200);
    EXPECT_EQ(view.time, "TrackTime: 2:54");
    player().TrackTimeLabel_Click();
    EXPECT_EQ(view.time, "TrackTime: 0:05");
    EXPECT_EQ(Saved("ShowElapsedTime"), "true");
    player().TrackTimeLabel_Click();
    EXPECT_EQ(Saved("ShowElapsedTime"), "false");
}

TEST_F(AudioPlayerTest, ReDisplayOnlyReturnsWhenNothingWasChosen) {
    Play(3);
    player().Swap();
    EXPECT_EQ(process.status, 1);
    process.track = 2;
    process.wire.sent.clear();
    clock.Advance(5000);
    EXPECT_TRUE(process.wire.sent.empty()); // hidden: nothing is watched
    player().ReDisplay();
    EXPECT_EQ(process.Count(WinampPlay), 0);
    clock.Advance(100);
    EXPECT_EQ(view.title, "Song3");
}

TEST_F(AudioPlayerTest, ReDisplayStartsWhatTheBrowserChose) {
    Play(3);
    player().DoPause();
    player().Swap();
    audio.ListFile = MakeList(8);
    audio.TrackToSelect = 6;
    audio.bStartPlaying = true;
    process.wire.sent.clear();
    player().ReDisplay();
    EXPECT_EQ(process.Count(WinampStop), 2); // the old sound first, then the list's own
    EXPECT_EQ(process.track, 5);
    EXPECT_FALSE(audio.bPaused);
    EXPECT_EQ(view.buttons[PlayerButton::Pause], "pause.gif");
    EXPECT_EQ(view.title, "Song6");
}

TEST_F(AudioPlayerTest, SwapsToTheBrowser) {
    Play(3);
    player().Swap();
    EXPECT_EQ(playlists.Count("ReShow"), 1);
    EXPECT_EQ(browser.ListMode, ListFromAudio);
    EXPECT_EQ(browser.CurrentPath, settings.values.MediaDir);
    EXPECT_TRUE(browser.RestoreHistory);
    EXPECT_TRUE(browser.FromPlayer);
    EXPECT_FALSE(view.frame);
    EXPECT_TRUE(Logged("saved audio data"));
    EXPECT_EQ(settings.Read("main", "LastPlayMode"), "3");
    EXPECT_EQ(audio.PlayMode, PlayAudio);
}

TEST_F(AudioPlayerTest, QuitsToTheMenu) {
    player().doquit(); // not entered yet
    EXPECT_EQ(menu.Count("ReShow"), 0);
    Play(3, 3);
    process.wire.sent.clear();
    player().doquit();
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.Count(101), 1);
    EXPECT_EQ(menu.Count("ReShow"), 1);
    EXPECT_EQ(audio.PlayMode, PlayNone);
    EXPECT_EQ(settings.Read("main", "LastPlayMode"), "3");
    EXPECT_EQ(Saved("currenttrack"), "2");
    player().doquit();
    EXPECT_EQ(menu.Count("ReShow"), 1);
    process.wire.sent.clear();
    clock.Advance(60000);
    EXPECT_TRUE(process.wire.sent.empty());
}

TEST_F(AudioPlayerTest, QuitsWhenTheDiscIsTakenOut) {
    audio.VolumeSerial = 77;
    volumes.ready.insert("/media/disc");
    Play(3);
    clock.Advance(3000);
    EXPECT_EQ(menu.Count("ReShow"), 0);
    volumes.ready.clear();
    clock.Advance(1000);
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(AudioPlayerTest, HoldsAndClicksTheStepButtons) {
    Play(9);
    player().Press(HeldForward);
    EXPECT_EQ(view.buttons[PlayerButton::FastForward], "ffsel.gif");
    clock.Advance(300);
    player().Release();
    EXPECT_EQ(view.buttons[PlayerButton::FastForward], "ff.gif");
    EXPECT_EQ(process.Count(WinampNext), 1);
    EXPECT_EQ(process.Count(WinampForward), 0);
    player().Press(HeldForward);
    clock.Advance(700);
    player().Release();
    EXPECT_EQ(process.Count(WinampNext), 1);
    EXPECT_EQ(process.Count(WinampForward), 3);
    player().Press(HeldRewind);
    clock.Advance(500);
    player().Release();
    EXPECT_EQ(process.Count(WinampRewind), 1);
    EXPECT_EQ(process.Count(WinampPrevious), 0);
}

TEST_F(AudioPlayerTest, ScrollsTheListWhileAStripIsHeld) {
    Play(50);
    player().Press(HeldScrollDown);
    clock.Advance(100);
    EXPECT_EQ(list.iSelected, 1);
    clock.Advance(600);
    player().Release();
    EXPECT_EQ(list.iSelected, 4);
    clock.Advance(600);
    EXPECT_EQ(list.iSelected, 4);
}

TEST_F(AudioPlayerTest, TogglesShuffle) {
    app.Write("winamp.ini", "[Winamp]\r\nshuffle=1\r\n");
    Play(2);
    EXPECT_TRUE(audio.bShuffle);
    EXPECT_TRUE(Logged("winamp.ini shuffle=1"));
    player().setshuffle();
    EXPECT_EQ(process.Count(WinampToggleShuffle), 1);
    EXPECT_FALSE(view.shuffle);
    EXPECT_EQ(view.buttons[PlayerButton::Shuffle], "shuffle.gif");
    EXPECT_EQ(Shuffle(), "0");
    player().setshuffle();
    EXPECT_TRUE(view.shuffle);
    EXPECT_EQ(Shuffle(), "1");
}

TEST_F(AudioPlayerTest, ComesToTheFrontEachSecondWhenToldTo) {
    Play(2);
    clock.Advance(3000);
    EXPECT_EQ(window.foreground, 0);
    player().BringToFront(2);
    clock.Advance(5000);
    EXPECT_EQ(window.foreground, 2);
    settings.values.alwaysontop = true;
    clock.Advance(3000);
    EXPECT_EQ(window.foreground, 5);
    screens.CurrentForm = "playlists";
    clock.Advance(3000);
    EXPECT_EQ(window.foreground, 5);
}

TEST_F(AudioPlayerTest, AnswersMappedAndFixedKeys) {
    keys.pause = "32";
    keys.up = "65";
    keys.startvis = "";
    Play(9, 5);
    EXPECT_TRUE(player().Form_KeyDown("32"));
    EXPECT_TRUE(audio.bPaused);
    EXPECT_TRUE(player().Form_KeyDown("65"));
    EXPECT_EQ(list.iSelected, 3);
    EXPECT_TRUE(player().Form_KeyDown("38"));
    EXPECT_EQ(list.iSelected, 2);
    EXPECT_TRUE(player().Form_KeyDown("40"));
    EXPECT_TRUE(player().Form_KeyDown("39"));
    EXPECT_EQ(process.Count(WinampNext), 1);
    EXPECT_FALSE(player().Form_KeyDown(""));
    EXPECT_FALSE(player().Form_KeyDown("9"));
    EXPECT_TRUE(player().Form_KeyDown("27"));
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(AudioPlayerTest, IgnoresKeysWhileAListIsLoaded) {
    int tried = 0;
    clock.onEvents = [&] {
        if (state.ListBusy && audio.PlayMode == PlayAudio) {
            EXPECT_TRUE(player().Form_KeyDown("27"));
            ++tried;
        }
    };
    Play(2);
    EXPECT_GT(tried, 0);
    EXPECT_EQ(menu.Count("ReShow"), 0);
}

TEST_F(AudioPlayerTest, WithoutTunerOrMixerTheirOperationsDoNothing) {
    Play(2);
    audio.PlayMode = PlayFM;
    process.wire.sent.clear();
    player().MoveAhead();
    player().DoFF();
    player().runok();
    player().Wheel(1);
    player().VolUp();
    player().domute();
    clock.Advance(2000);
    EXPECT_TRUE(process.wire.sent.empty());
    EXPECT_TRUE(view.volumes.empty());
}

TEST_F(AudioPlayerTest, LogsAFailureAndGoesOn) {
    Play(2);
    process.wire.broken = true;
    player().MoveAhead();
    EXPECT_TRUE(Logged("Error occured in Playmp3.MoveAhead wire cut"));
    process.wire.broken = false;
    player().MoveAhead();
    EXPECT_EQ(view.title, "Song2");
}

} // namespace vk::test
