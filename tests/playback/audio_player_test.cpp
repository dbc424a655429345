#include "tests/playback/audio_fixture.h"

#include <gmock/gmock.h>

namespace vk::test {

using testing::ElementsAre;

struct AudioPlayerTest : testing::Test, AudioFixture {
    std::string Shuffle() { return ini.ReadText(app.File("winamp.ini"), "winamp", "shuffle"); }
    void Hold(HeldAction action, int milliseconds) {
        player().Press(action);
        clock.Advance(milliseconds);
        player().Release();
    }
};

TEST_F(AudioPlayerTest, EntersWithClockFrameAndTheTimeGoneOrLeft) {
    Play(3);
    EXPECT_EQ(screens.CurrentForm, "playmp3");
    EXPECT_TRUE(view.frame);
    EXPECT_EQ(view.shows, 1);
    EXPECT_THAT(view.clocks, ElementsAre("Saturday, November 21, 2026    12:0"));
    clock.Advance(500);
    EXPECT_EQ(view.time, "TrackTime: 2:59");
    clock.Advance(4700);
    player().TrackTimeLabel_Click();
    EXPECT_EQ(view.time, "TrackTime: 0:05");
    EXPECT_EQ(Saved("ShowElapsedTime"), "true");
    player().TrackTimeLabel_Click();
    EXPECT_EQ(Saved("ShowElapsedTime"), "false");
    clock.Advance(30000);
    EXPECT_EQ(view.clocks.size(), 1u); // written only when it has changed
    clock.Advance(30000);
    EXPECT_EQ(view.clocks.size(), 2u);
}

TEST_F(AudioPlayerTest, SwapsToTheBrowserAndReturnsWhenNothingWasChosen) {
    Play(3);
    player().Swap();
    EXPECT_EQ(playlists.Count("ReShow"), 1);
    EXPECT_EQ(browser.ListMode, ListFromAudio);
    EXPECT_EQ(browser.CurrentPath, settings.values.MediaDir);
    EXPECT_TRUE(browser.RestoreHistory && browser.FromPlayer);
    EXPECT_FALSE(view.frame);
    EXPECT_TRUE(Logged("saved audio data"));
    EXPECT_EQ(settings.Read("main", "LastPlayMode"), "3");
    EXPECT_EQ(audio.PlayMode, PlayAudio);
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
    Choose(8, 6);
    process.wire.sent.clear();
    player().ReDisplay();
    EXPECT_EQ(process.Count(WinampStop), 2); // the old sound first, then the list's own
    EXPECT_EQ(process.track, 5);
    EXPECT_FALSE(audio.bPaused);
    EXPECT_EQ(view.buttons[PlayerButton::Pause], "pause.gif");
    EXPECT_EQ(view.title, "Song6");
}

TEST_F(AudioPlayerTest, QuitsToTheMenu) {
    player().doquit(); // not entered yet
    EXPECT_EQ(menu.Count("ReShow"), 0);
    Play(3, 3);
    process.wire.sent.clear();
    player().doquit();
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.Count(101), 1);
    EXPECT_EQ(audio.PlayMode, PlayNone);
    EXPECT_EQ(settings.Read("main", "LastPlayMode"), "3");
    EXPECT_EQ(Saved("currenttrack"), "2");
    player().doquit();
    EXPECT_EQ(menu.Count("ReShow"), 1);
    process.wire.sent.clear();
    clock.Advance(60000);
    EXPECT_TRUE(process.wire.sent.empty());
    InsertDisc();
    Play(3);
    clock.Advance(3000);
    EXPECT_EQ(menu.Count("ReShow"), 1);
    volumes.ready.clear(); // the disc was taken out
    clock.Advance(1000);
    EXPECT_EQ(menu.Count("ReShow"), 2);
}

TEST_F(AudioPlayerTest, HoldsAndClicksTheStepButtonsAndStrips) {
    Play(50);
    process.wire.sent.clear();
    player().Press(HeldForward);
    EXPECT_EQ(view.buttons[PlayerButton::FastForward], "ffsel.gif");
    player().Release(false); // the finger has slid off
    EXPECT_EQ(view.buttons[PlayerButton::FastForward], "ff.gif");
    Hold(HeldForward, 700);
    Hold(HeldRewind, 500);
    EXPECT_EQ(process.Count(WinampForward), 3);
    EXPECT_EQ(process.Count(WinampRewind), 1);
    EXPECT_EQ(process.Count(WinampNext) + process.Count(WinampPrevious), 0);
    Hold(HeldForward, 300);
    Hold(HeldForward, 300);
    Hold(HeldRewind, 300);
    EXPECT_EQ(process.Count(WinampNext), 2);
    EXPECT_EQ(process.Count(WinampPrevious), 1);
    const int before = list.iSelected;
    Hold(HeldScrollDown, 700);
    clock.Advance(600);
    EXPECT_EQ(list.iSelected, before + 4);
    player().Press(HeldForward);
    player().Swap(); // the screen goes under the finger
    EXPECT_EQ(view.buttons[PlayerButton::FastForward], "ff.gif");
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

TEST_F(AudioPlayerTest, IgnoresKeysWhileAListIsLoaded) {
    int tried = 0;
    clock.onEvents = [&] {
        if (!state.ListBusy || audio.PlayMode != PlayAudio) return;
        EXPECT_TRUE(player().Form_KeyDown("27"));
        ++tried;
    };
    Play(2);
    EXPECT_GT(tried, 0);
    EXPECT_EQ(menu.Count("ReShow"), 0);
}

TEST_F(AudioPlayerTest, WithoutTunerOrCardTheirOperationsDoNothing) {
    mixer.present = false;
    Play(2);
    EXPECT_EQ(dialogs.shown.back(), "No sound card detected.  You must install a sound card.");
    player().ReShow();
    EXPECT_EQ(dialogs.shown.size(), 1u); // told once, and after the music was started
    player().SwitchToFM();
    player().SwitchToXM();
    EXPECT_EQ(process.status, 1);
    EXPECT_EQ(audio.PlayMode, PlayAudio);
    audio.PlayMode = PlayFM;
    process.wire.sent.clear();
    for (const auto press : {&AudioPlayer::MoveAhead, &AudioPlayer::DoFF, &AudioPlayer::runok,
                             &AudioPlayer::VolUp, &AudioPlayer::domute})
        (player().*press)();
    for (const auto mode : {PlayFM, PlayNone}) {
        audio.PlayMode = mode;
        player().Wheel(-1);
    }
    EXPECT_EQ(list.iSelected, 0) << "it tunes";
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

TEST_F(AudioPlayerTest, EnteredFromTheBrowserItHasAVolumeStepAndDrawsOnceMoreAfterTwoSeconds) {
    Choose(2);
    player().ReDisplay();
    player().VolUp();
    EXPECT_EQ(mixer.Level(MixerLine::Master), 20);
    clock.Advance(1900);
    EXPECT_EQ(view.coverRedraws, 0);
    const int redraws = view.redraws;
    clock.Advance(3000);
    EXPECT_EQ(view.coverRedraws, 1);
    EXPECT_EQ(view.redraws, redraws + 1);
}

} // namespace vk::test
