#include "tests/playback/audio_fixture.h"

namespace vk::test {

struct AudioPlayerTest : testing::Test, AudioFixture {
    /// What each tick of a held button does, then its release and the time after: one letter each,
    /// "." for nothing.
    std::string Trace(HeldAction action, std::int16_t repeatAfter, int ticks, bool inside = true) {
        settings.values.TSRepeatVal = repeatAfter;
        player().buttons().Press(action);
        std::string seen;
        for (int tick = 0; tick < ticks + 2; ++tick) {
            const int row = list.iSelected, loud = level;
            process.wire.sent.clear();
            tick == ticks ? player().buttons().Release(inside)
                          : clock.Advance(tick < ticks ? 100 : 600);
            seen += list.iSelected > row ? 'D' : list.iSelected < row ? 'U' : '.';
            if (level != loud) seen.back() = level > loud ? '+' : '-';
            for (const auto& [command, letter] :
                 {std::pair(40148, 'F'), {40144, 'R'}, {40048, 'N'}, {40044, 'P'}})
                if (process.Count(command) > 0) seen.back() = letter;
        }
        return seen;
    }
};

TEST_F(AudioPlayerTest, EntersWithClockFrameAndTheTimeGoneOrLeft) {
    Play(3);
    EXPECT_TRUE(screens.CurrentForm == "playmp3" && view.frame && view.shows == 1);
    EXPECT_THAT(view.clocks, ElementsAre("Saturday, November 21, 2026    12:0"));
    clock.Advance(500);
    EXPECT_EQ(view.time, "TrackTime: 2:59");
    clock.Advance(4700);
    for (const auto& [elapsed, time] : {std::pair("true", "0:05"), {"false", "2:54"}}) {
        player().TrackTimeLabel_Click();
        EXPECT_EQ(view.time, std::string("TrackTime: ") + time);
        EXPECT_EQ(Saved("ShowElapsedTime"), elapsed);
    }
    clock.Advance(30000);
    EXPECT_EQ(view.clocks.size(), 1u); // written only when it has changed
    clock.Advance(30000);
    EXPECT_EQ(view.clocks.size(), 2u);
}

TEST_F(AudioPlayerTest, SwapsToTheBrowserAndReturnsWithOrWithoutAChoice) {
    Play(3);
    player().Swap();
    EXPECT_EQ(playlists.Count("ReShow"), 1);
    EXPECT_EQ(browser.ListMode, ListFromAudio);
    EXPECT_EQ(browser.CurrentPath, settings.values.MediaDir);
    EXPECT_TRUE(browser.RestoreHistory && browser.FromPlayer && !view.frame);
    EXPECT_TRUE(Logged("saved audio data"));
    EXPECT_EQ(settings.Read("main", "LastPlayMode"), "3");
    EXPECT_EQ(process.status, 1);
    process.track = 2;
    process.wire.sent.clear();
    clock.Advance(5000); // hidden: nothing is watched
    EXPECT_TRUE(process.wire.sent.empty());
    player().ReDisplay();
    EXPECT_EQ(process.Count(WinampPlay), 0);
    clock.Advance(100);
    EXPECT_EQ(view.title, "Song3");
    process.positionMs = 61000;
    TransportLink transport; // what other screens see of it
    EXPECT_EQ(transport.Now(), NowPlaying());
    transport.Connect(&player());
    EXPECT_EQ(transport.Now(), (NowPlaying{"Song3", "Artist3", 61, true}));
    transport.DoPause();
    EXPECT_FALSE(transport.Now().playing);
    player().Swap();
    Choose(8, 6);
    process.wire.sent.clear();
    Command(&AudioPlayer::ReDisplay);
    EXPECT_EQ(process.Count(WinampStop), 2); // the old sound first, then the list's own
    EXPECT_EQ(view.title + " " + process.State(), "Song6 playing 5 at 0");
    EXPECT_EQ(view.buttons[PlayerButton::Pause], "pause.gif");
    clock.Advance(1900);
    const int redraws = view.redraws, covers = view.coverRedraws;
    clock.Advance(3000); // once more 2 seconds after it was entered
    EXPECT_EQ(view.coverRedraws, covers + 1);
    EXPECT_EQ(view.redraws, redraws + 1);
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
    EXPECT_EQ(settings.Read("main", "LastPlayMode") + Saved("currenttrack"), "32");
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
    Play(50, 25);
    level = 500;
    const std::tuple<HeldAction, std::int16_t, int, const char*> cases[] = {
        {HeldVolUp, 4, 7, "+++++++.."},    {HeldVolDown, 4, 7, "-------.."},
        {HeldForward, 4, 7, "....FFF.."},  {HeldRewind, 2, 7, "..RRRRR.."},
        {HeldScrollUp, 4, 7, "U...UUU.."}, {HeldScrollDown, 0, 7, "DDDDDDD.."},
        {HeldForward, 0, 7, ".FFFFFF.."},  {HeldForward, 4, 4, "......"},
        {HeldForward, 4, 3, "...N."},      {HeldRewind, 4, 3, "...P."},
        {HeldForward, 4, 0, "N."},         {HeldVolUp, 4, 0, "+."},
        {HeldScrollDown, 4, 0, "D."}};
    for (const auto& [action, repeatAfter, ticks, trace] : cases)
        EXPECT_EQ(Trace(action, repeatAfter, ticks), trace) << action;
    EXPECT_EQ(Trace(HeldForward, 4, 2, false), "....") << "the finger has slid off";
    player().buttons().Press(HeldForward);
    EXPECT_EQ(view.buttons[PlayerButton::FastForward], "ffsel.gif");
    player().Swap(); // the screen goes under the finger
    EXPECT_EQ(view.buttons[PlayerButton::FastForward], "ff.gif");
}

TEST_F(AudioPlayerTest, TogglesShuffleAndGoesOnAfterAFailure) {
    app.Write("winamp.ini", "[Winamp]\r\nshuffle=1\r\n");
    Play(2);
    EXPECT_TRUE(audio.bShuffle);
    for (const bool on : {false, true}) {
        process.wire.sent.clear();
        player().setshuffle();
        EXPECT_EQ(process.Count(WinampToggleShuffle), 1);
        EXPECT_EQ(view.shuffle, on);
        EXPECT_EQ(view.buttons[PlayerButton::Shuffle], on ? "shufflesel.gif" : "shuffle.gif");
        EXPECT_EQ(ini.ReadText(app.File("winamp.ini"), "winamp", "shuffle"), on ? "1" : "0");
    }
    process.wire.broken = true;
    player().MoveAhead();
    EXPECT_TRUE(Logged("Error occured in Playmp3.MoveAhead wire cut"));
    process.wire.broken = false;
    player().MoveAhead();
    EXPECT_EQ(view.title, "Song2");
}

TEST_F(AudioPlayerTest, ComesToTheFrontEachSecondWhenToldTo) {
    const auto after5s = [this] { return clock.Advance(5000), window.foreground; };
    Play(2);
    EXPECT_EQ(after5s(), 0);
    player().ticks().BringToFront(2);
    EXPECT_EQ(after5s(), 2);
    settings.values.alwaysontop = true;
    EXPECT_EQ(after5s(), 2 + 5);
    screens.CurrentForm = "playlists";
    EXPECT_EQ(after5s(), 2 + 5);
}

TEST_F(AudioPlayerTest, AQuitEndsAStartThatHangsAtOnceAndAHeldButtonIsLetGoMeanwhile) {
    Play(2);
    player().buttons().Press(HeldForward);
    process.obeys = false;
    process.status = 0;
    clock.onEvents = [&] {
        player().buttons().Release();
        if (clock.TickMs() >= 1000) QuitMeanwhile();
    };
    Play(2); // events run inside: ticks and a click are dropped or wait
    EXPECT_LE(clock.TickMs(), 1050);
    EXPECT_EQ(menu.Count("ReShow"), 1);
    EXPECT_EQ(process.Count(WinampForward) + process.Count(WinampNext), 0);
    EXPECT_EQ(view.clocks.size(), 1u) << "it has not failed";
}

TEST_F(AudioPlayerTest, WithoutATunerItsOperationsDoNothing) {
    Play(2);
    audio.PlayMode = PlayFM;
    process.wire.sent.clear();
    for (const auto press : {&AudioPlayer::MoveAhead, &AudioPlayer::DoFF, &AudioPlayer::runok})
        (player().*press)();
    for (const auto mode : {PlayFM, PlayNone}) {
        audio.PlayMode = mode;
        player().Wheel(-1);
    }
    EXPECT_EQ(list.iSelected, 0) << "it tunes";
    clock.Advance(2000);
    EXPECT_TRUE(process.wire.sent.empty());
}

} // namespace vk::test
