#include "playback/player_watch.h"
#include "tests/playback/audio_fixture.h"

namespace vk::test {

struct PlayerWatchTest : testing::Test, AudioFixture {
    PlayerWatchTest() {
        menu.onCall = [this](const std::string& call) {
            if (call == "ReShow") screens.CurrentForm = "velkorandum";
        };
        process.wire.answer = [this, answer = process.wire.answer](const auto& m) {
            if (std::exchange(hangs, false)) Hang();
            return answer(m);
        };
        supervisor->Start(400);
    }
    /// The process is another one from now on, or none.
    void Lose(bool running = false) {
        process.wire.running = running;
        process.status = process.track = process.positionMs = 0;
    }
    void Hang() {
        process.wire.silent = true;
        process.status = process.track = process.positionMs = 0; // what is answered for it
    }
    std::size_t Starts() const { return process.wire.started.size(); }

    bool hangs = false; ///< with the next message
    PlayerWatch watch{{base, process.wire, winamp, player()}};
    std::unique_ptr<Timer> supervisor = clock.MakeTimer([this] { watch.Look(); });
};

TEST_F(PlayerWatchTest, OneThatIsMissingOrNeverListensCostsOneMessageAndGrowingPauses) {
    for (const bool starts : {false, true}) {
        dialogs.shown.clear();
        process.wire.started.clear();
        process.wire.canStart = starts;
        process.wire.listens = false;
        screens.CurrentForm = "settings";
        Lose();
        clock.Advance(4000);
        EXPECT_EQ(Starts(), starts ? 1u : 4u);
        clock.Advance(600'000);
        EXPECT_LE(Starts(), 18u);
        EXPECT_EQ(dialogs.shown.size(), 1u);
        EXPECT_EQ(screens.CurrentForm, "settings");
        EXPECT_EQ(menu.Count("ReShow"), 0);
        process.wire.canStart = process.wire.listens = true;
        clock.Advance(90'000);
        EXPECT_TRUE(process.wire.running) << "it is there now";
        Lose();
        clock.Advance(400);
        EXPECT_TRUE(process.wire.running) << "and is brought back at once";
    }
    EXPECT_GT(process.wire.kills, 3);
}

TEST_F(PlayerWatchTest, MusicThatEndsWithItsProcessIsLeftAndNoOtherScreen) {
    for (const auto& [form, after, visualised] : {std::tuple("playmp3", "velkorandum", false),
                                                  {"playmp3", "velkorandum", true},
                                                  {"playlists", "playlists", false}}) {
        Play(3, 2);
        process.positionMs = 42'000;
        clock.Advance(PlayerWatch::SteadyMs + 1000);
        screens.CurrentForm = form;
        if (visualised) Command(&AudioPlayer::DoVis);
        Lose();
        clock.Advance(800);
        EXPECT_EQ(screens.CurrentForm, after);
        EXPECT_EQ(audio.PlayMode, PlayNone) << form;
        EXPECT_EQ(Saved("currenttrack"), "1");
    }
    screens.CurrentForm = "playmp3";
    clock.Advance(15'000);
    Lose();
    clock.Advance(800);
    EXPECT_EQ(screens.CurrentForm, "playmp3") << "nothing played";
    EXPECT_TRUE(process.wire.running && dialogs.shown.empty());
}

TEST_F(PlayerWatchTest, OneThatHangsIsReplacedAndTheMusicGoesOnWhereItWas) {
    for (const bool paused : {false, true}) {
        Play(3, 2);
        process.positionMs = 42'000;
        if (paused) player().DoPause();
        clock.Advance(800);
        screens.CurrentForm = "settings";
        hangs = true;
        clock.Advance(3000);
        EXPECT_EQ(process.wire.kills, paused ? 1 : 0) << "it may come back";
        clock.Advance(3000);
        EXPECT_EQ(process.State(), paused ? "paused 1 at 42" : "playing 1 at 42");
        EXPECT_EQ(audio.bPaused, paused);
        EXPECT_EQ(screens.CurrentForm, "settings");
        EXPECT_EQ(process.wire.kills, paused ? 2 : 1);
        clock.Advance(20'000);
    }
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(PlayerWatchTest, AListSurvivesTheEndOfTheProcessThatLoadsIt) {
    for (const bool hung : {false, true}) {
        int plays = 0;
        const auto answer = process.wire.answer;
        process.wire.answer = [&](const RecordingPlayer::Message& m) {
            if (m != RecordingPlayer::Command(WinampPlay) || ++plays > 1) return answer(m);
            return hung ? Hang() : Lose(), 0;
        };
        process.obeys = true;
        Play(3, 2);
        process.wire.answer = answer;
        EXPECT_EQ(process.State(), "playing 1 at 0") << hung;
        EXPECT_EQ(plays, 2);
        clock.Advance(20'000);
        EXPECT_EQ(screens.CurrentForm, "playmp3");
        EXPECT_EQ(process.State(), "playing 1 at 0");
    }
}

} // namespace vk::test
