#include "platform/player_window.h"
#include "player/engine/engine.h"
#include "tests/player/recording_output.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vk::test {
namespace {

using testing::ElementsAre;

struct EngineTest : testing::Test {
    EngineTest() { Make({}); }
    void Make(PlayerSettings settings) {
        engine = std::make_unique<Engine>(
            output, settings, [this] { return nowMs * 1000000; }, 5);
    }
    void Make(bool repeat) {
        PlayerSettings settings;
        settings.repeat = repeat;
        Make(settings);
    }
    std::int32_t Ask(std::int32_t function, std::int32_t argument = 0) {
        return engine->Message({WM_USER, argument, function}).value();
    }
    void Command(std::int32_t id) { EXPECT_EQ(engine->Message({WM_COMMAND, id, 0}), 0); }
    void Add(std::string_view names) {
        std::string paths;
        for (const char name : names)
            paths.append(1, name).push_back('\0');
        engine->AddList(paths, nowMs * 1000000);
    }
    void Event(OutputEvent::Kind kind, std::int64_t ms = 0, TrackFacts facts = {}) {
        const auto track = kind == OutputEvent::Prepared ? output.preparedTrack : output.track;
        engine->OnEvent({kind, track, ms, facts});
    }
    void Start(std::int64_t lengthMs = 60000) { Event(OutputEvent::Started, 0, {lengthMs, 128}); }
    void PlayList(std::string_view names) {
        Add(names);
        Command(40045);
        Start();
    }
    int Status() { return Ask(104); }
    int Position() { return Ask(105, 0); }

    std::int64_t nowMs = 1000;
    RecordingOutput output;
    std::unique_ptr<Engine> engine;
};

TEST_F(EngineTest, AnswersWhenNothingIsLoaded) {
    EXPECT_EQ(Ask(0), 0x2081);
    EXPECT_EQ(Status(), 0);
    EXPECT_EQ(Position(), -1);
    EXPECT_EQ(Ask(105, 1), -1);
    EXPECT_EQ(Ask(126, 1), 0);
    EXPECT_EQ(Ask(999), 0);
    EXPECT_EQ(engine->Message({1, 2, 3}), 0);
    for (const int id : {40012, 40192, 40046, 40048, 40044, 40144, 40148, 1})
        Command(id);
    EXPECT_THAT(output.calls, ElementsAre());
    EXPECT_EQ(engine->Message({WM_COMMAND, 40001, 0}), std::nullopt);
}

TEST_F(EngineTest, ReadsAsPlayingOnceTheTrackSounds) {
    Add("ab");
    Command(40045);
    EXPECT_EQ(Status(), 0);
    EXPECT_EQ(Position(), 0);
    Start(61999);
    EXPECT_EQ(Status(), 1);
    EXPECT_EQ(Ask(105, 1), 61);
    EXPECT_EQ(Ask(126, 1), 128);
    nowMs += 130;
    EXPECT_EQ(Position(), 130);
    Event(OutputEvent::Position, 250);
    nowMs += 100;
    EXPECT_EQ(Position(), 350);
    nowMs += 100000;
    EXPECT_EQ(Position(), 1250) << "a stuck output's position stands still";
}

TEST_F(EngineTest, APlayThatComesBeforeItsListIsRemembered) {
    Command(40047);
    Ask(101);
    Ask(121, 1);
    Command(40045);
    EXPECT_EQ(Status(), 0);
    Add("abc");
    EXPECT_THAT(output.played, ElementsAre("b"));
    Add("d");
    EXPECT_EQ(output.played.size(), 1u);
}

TEST_F(EngineTest, StopAndClearForgetTheRememberedPlay) {
    for (const bool stop : {true, false}) {
        Command(40045);
        stop ? Command(40047) : void(Ask(101));
        Add("a");
        EXPECT_TRUE(output.played.empty());
        Ask(101);
    }
}

TEST_F(EngineTest, AnEntryBeyondTheArrivedListIsSkippedLikeAMissingOne) {
    Ask(121, 5);
    Command(40045);
    Add("ab");
    EXPECT_TRUE(output.played.empty());
    Make(true);
    Ask(121, 5);
    Command(40045);
    Add("ab");
    EXPECT_THAT(output.played, ElementsAre("a"));
}

TEST_F(EngineTest, AListFromBeforeTheClearIsDropped) {
    const std::int64_t before = nowMs * 1000000;
    nowMs += 5;
    Ask(101);
    Command(40045);
    engine->AddList(std::string_view("old\0", 4), before);
    EXPECT_TRUE(output.played.empty());
    Add("n");
    EXPECT_THAT(output.played, ElementsAre("n"));
}

TEST_F(EngineTest, PauseTogglesAndHoldsThePosition) {
    PlayList("ab");
    nowMs += 200;
    Command(40046);
    EXPECT_EQ(Status(), 3);
    nowMs += 500;
    EXPECT_EQ(Position(), 200);
    Command(40045);
    EXPECT_EQ(Status(), 1);
    nowMs += 50;
    EXPECT_EQ(Position(), 250);
    Command(40046);
    Command(40046);
    EXPECT_THAT(output.calls, ElementsAre("play a", "pause", "resume", "pause", "resume"));
}

TEST_F(EngineTest, PlayWhilePlayingRestartsTheTrack) {
    PlayList("ab");
    nowMs += 300;
    Command(40045);
    EXPECT_EQ(Position(), 0);
    EXPECT_EQ(Status(), 1);
    EXPECT_THAT(output.played, ElementsAre("a", "a"));
}

TEST_F(EngineTest, StopAnswersAtOnceAndLateEventsAreOfNoTrack) {
    PlayList("ab");
    const std::uint32_t track = output.track;
    Command(40047);
    EXPECT_EQ(Status(), 0);
    EXPECT_EQ(Position(), -1);
    engine->OnEvent({OutputEvent::Ended, track, 0, {}});
    EXPECT_EQ(output.played.size(), 1u);
    EXPECT_EQ(Ask(125), 0);
}

TEST_F(EngineTest, ANewTrackNeverShowsTheOldPosition) {
    PlayList("ab");
    const std::uint32_t old = output.track;
    Event(OutputEvent::Position, 40000);
    Command(40048);
    engine->OnEvent({OutputEvent::Position, old, 40250, {}});
    EXPECT_EQ(Position(), 0);
    EXPECT_EQ(Ask(125), 1);
    EXPECT_EQ(Status(), 1) << "going on reads as playing";
    EXPECT_EQ(Ask(105, 1), -1);
}

TEST_F(EngineTest, ThePreparedTracksFactsAreThereAtOnce) {
    PlayList("ab");
    EXPECT_EQ(output.prepared, "b");
    Event(OutputEvent::Prepared, 0, {5000, 320});
    Command(40048);
    EXPECT_EQ(Ask(126, 1), 320);
    EXPECT_EQ(Ask(105, 1), 5);
}

TEST_F(EngineTest, GoesFromTrackToTrackAndAroundWithRepeat) {
    Make(true);
    PlayList("ab");
    for (int track = 0; track < 2; ++track) {
        Event(OutputEvent::Ended);
        Start();
    }
    EXPECT_THAT(output.played, ElementsAre("a", "b", "a"));
    EXPECT_EQ(Ask(125), 0);
}

TEST_F(EngineTest, EndsAtTheEndOfTheListWithoutRepeat) {
    PlayList("ab");
    Event(OutputEvent::Ended);
    Start();
    Event(OutputEvent::Ended);
    EXPECT_EQ(Status(), 0);
    EXPECT_EQ(output.calls.back(), "stop");
}

TEST_F(EngineTest, WithoutAdvanceOneTrackIsAllOrRepeats) {
    for (const bool repeat : {false, true}) {
        PlayerSettings settings;
        settings.advance = false;
        settings.repeat = repeat;
        Make(settings);
        PlayList("ab");
        Event(OutputEvent::Ended);
        EXPECT_EQ(output.calls.back(), repeat ? "play a" : "stop");
    }
}

TEST_F(EngineTest, SkipsWhatCannotBePlayedInTheDirectionOfTravel) {
    Make(true);
    PlayList("abcd");
    Command(40044);
    Event(OutputEvent::Failed);
    EXPECT_EQ(output.played.back(), "c");
    Start();
    Event(OutputEvent::Ended);
    EXPECT_EQ(output.played.back(), "d");
    Event(OutputEvent::Failed);
    EXPECT_EQ(output.played.back(), "a");
    EXPECT_EQ(Status(), 1);
}

TEST_F(EngineTest, AListOfNothingPlayableIsTriedOnce) {
    Make(true);
    Add("abc");
    Command(40045);
    for (int event = 0; event < 3; ++event)
        Event(OutputEvent::Failed);
    EXPECT_THAT(output.played, ElementsAre("a", "b", "c"));
    EXPECT_EQ(Status(), 0);
    EXPECT_EQ(output.calls.back(), "stop");
}

TEST_F(EngineTest, ALateFailureOfALastTrackWithoutRepeatStops) {
    Add("ab");
    Ask(121, 1);
    Command(40045);
    Event(OutputEvent::Failed);
    EXPECT_EQ(Status(), 0);
}

TEST_F(EngineTest, SeeksAndJumpsWithinTheTrack) {
    PlayList("ab");
    EXPECT_EQ(Ask(106, 30000), 0);
    EXPECT_EQ(Position(), 30000);
    Event(OutputEvent::Position, 900);
    EXPECT_EQ(Position(), 30000) << "a report from before the seek";
    nowMs += 500;
    Event(OutputEvent::Position, 30400);
    EXPECT_EQ(Position(), 30400);
    Command(40148);
    Command(40144);
    Command(40144);
    EXPECT_EQ(Position(), 25400);
    Ask(106, 1000);
    Command(40144);
    EXPECT_EQ(output.calls.back(), "seek 0");
    Ask(106, -7);
    EXPECT_EQ(output.calls.back(), "seek 0");
}

TEST_F(EngineTest, BeyondTheEndComesTheNextTrack) {
    PlayList("ab");
    Ask(106, 58000);
    Command(40148);
    EXPECT_EQ(output.played.back(), "b");
    Start();
    Command(40046);
    Ask(106, 60000);
    EXPECT_EQ(output.played.size(), 2u);
    EXPECT_EQ(Position(), 60000);
}

TEST_F(EngineTest, TheListMayBeReplacedWhileATrackPlays) {
    PlayList("abc");
    Ask(101);
    EXPECT_EQ(Status(), 1);
    Event(OutputEvent::Position, 5000);
    EXPECT_EQ(Position(), 5000);
    Add("xy");
    EXPECT_EQ(output.played.size(), 1u);
    Event(OutputEvent::Ended);
    EXPECT_EQ(output.played.back(), "x");
    Ask(101);
    Start();
    Event(OutputEvent::Ended);
    EXPECT_EQ(Status(), 0);
}

TEST_F(EngineTest, WhatIsPausedStaysPausedAcrossNext) {
    PlayList("ab");
    Event(OutputEvent::Position, 7000);
    Command(40046);
    Command(40048);
    EXPECT_EQ(Status(), 3);
    EXPECT_EQ(Position(), 0);
    EXPECT_EQ(Ask(125), 1);
    Command(40045);
    EXPECT_EQ(output.played.back(), "b");
    Start();
    EXPECT_EQ(Status(), 1);
}

TEST_F(EngineTest, APauseWhileATrackOpensHolds) {
    Add("a");
    Command(40045);
    Command(40046);
    Start();
    nowMs += 400;
    EXPECT_EQ(Status(), 3);
    EXPECT_EQ(Position(), 0);
}

TEST_F(EngineTest, KeepsEqualiserValuesAndSwitchesItOnWhenOneIsSet) {
    PlayerSettings settings;
    settings.equaliser.bands[2] = 40;
    Make(settings);
    EXPECT_FALSE(output.equaliser.on);
    EXPECT_EQ(Ask(127, 2), 40);
    Ask(128, 0);
    EXPECT_EQ(Ask(127, 2), 0);
    Ask(127, 10);
    Ask(128, 63);
    Ask(128, 64);
    EXPECT_EQ(Ask(127, 10), 63);
    EXPECT_EQ(Ask(127, 11), 0);
    EXPECT_TRUE(output.equaliser.on);
    EXPECT_FLOAT_EQ(output.equaliser.bands[2], 20);
    EXPECT_FLOAT_EQ(output.equaliser.bands[3], 0);
    EXPECT_FLOAT_EQ(output.equaliser.preamp, -20);
}

TEST_F(EngineTest, VolumeIsCheckedAndShuffleToggles) {
    EXPECT_EQ(output.volume, 255);
    Ask(122, 10);
    Ask(122, 256);
    Ask(122, -1);
    Ask(123, 128);
    EXPECT_EQ(output.volume, 10);
    Make(true);
    PlayList("abcdefghijklmnop");
    Command(40023);
    std::string order;
    for (int track = 0; track < 15; ++track) {
        Command(40048);
        order += output.played.back();
    }
    EXPECT_NE(order, "bcdefghijklmnop");
    std::sort(order.begin(), order.end());
    EXPECT_EQ(order, "bcdefghijklmnop");
}

} // namespace
} // namespace vk::test
