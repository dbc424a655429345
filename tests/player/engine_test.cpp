#include "platform/player_window.h"
#include "player/engine/engine.h"
#include "tests/player/recording_output.h"

#include <gmock/gmock.h>

#include <numeric>

namespace vk::test {
namespace {

using testing::ElementsAre;

struct EngineTest : testing::Test {
    EngineTest() { Make({}); }
    void Make(PlayerSettings settings) {
        engine = std::make_unique<Engine>(
            output, settings, [this] { return Now(); }, 5);
    }
    void Make(bool repeat, bool advance = true) {
        PlayerSettings settings;
        settings.repeat = repeat;
        settings.advance = advance;
        Make(settings);
    }
    std::int64_t Now() const { return nowMs * 1000000; }
    std::int32_t Ask(std::int32_t function, std::int32_t argument = 0) {
        return engine->Message({WM_USER, argument, function}).value();
    }
    void Command(std::int32_t id) { EXPECT_EQ(engine->Message({WM_COMMAND, id, 0}), 0); }
    void Play() { Command(40045); }
    void Pause() { Command(40046); }
    void Next() { Command(40048); }
    void Add(std::string_view names) {
        std::string paths;
        for (const char name : names)
            paths.append(1, name).push_back('\0');
        engine->AddList(paths, Now());
    }
    void Event(OutputEvent::Kind kind, std::int64_t ms = 0, TrackFacts facts = {}) {
        const auto track = kind == OutputEvent::Prepared ? output.preparedTrack : output.track;
        engine->OnEvent({kind, track, ms, facts});
    }
    void Start(std::int64_t lengthMs = 60000) { Event(OutputEvent::Started, 0, {lengthMs, 128}); }
    void PlayList(std::string_view names) {
        Add(names);
        Play();
        Start();
    }
    int Status() { return Ask(104); }
    int Position() { return Ask(105, 0); }
    /// Status (0 stopped, 1 playing, 3 paused) and position.
    std::string State() { return std::to_string(Status()) + " at " + std::to_string(Position()); }
    int Length() { return Ask(105, 1); }
    /// The tracks that the output was given so far, one letter each.
    std::string Played() const {
        return std::accumulate(output.played.begin(), output.played.end(), std::string());
    }

    std::int64_t nowMs = 1000;
    RecordingOutput output;
    std::unique_ptr<Engine> engine;
};

TEST_F(EngineTest, AnswersWhenNothingIsLoaded) {
    EXPECT_EQ(State(), "0 at -1");
    EXPECT_EQ(Length(), -1);
    const std::pair<int, int> answers[] = {{0, 0x2081}, {126, 0}, {999, 0}};
    for (const auto& [function, answer] : answers)
        EXPECT_EQ(Ask(function, 1), answer) << function;
    EXPECT_EQ(engine->Message({1, 2, 3}), 0);
    for (const int id : {40012, 40192, 40046, 40048, 40044, 40144, 40148, 1})
        Command(id);
    EXPECT_THAT(output.calls, ElementsAre());
    EXPECT_EQ(engine->Message({WM_COMMAND, 40001, 0}), std::nullopt);
}

TEST_F(EngineTest, ReadsAsPlayingOnceTheTrackSounds) {
    Add("ab");
    Play();
    EXPECT_EQ(State(), "0 at 0");
    Start(61999);
    EXPECT_EQ(Length(), 61);
    EXPECT_EQ(Ask(126, 1), 128);
    nowMs += 130;
    EXPECT_EQ(State(), "1 at 130");
    Event(OutputEvent::Position, 250);
    nowMs += 100;
    EXPECT_EQ(State(), "1 at 350");
    nowMs += 100000;
    EXPECT_EQ(State(), "1 at 1250") << "a stuck output's position stands still";
    Play();
    EXPECT_EQ(State(), "1 at 0") << "from the beginning again";
    EXPECT_EQ(Played(), "aa");
}

TEST_F(EngineTest, APlayThatComesBeforeItsListIsRememberedUntilStopOrClear) {
    Command(40047);
    Ask(101);
    Ask(121, 1);
    Play();
    EXPECT_EQ(Status(), 0);
    Add("abc");
    Add("d");
    EXPECT_EQ(Played(), "b");
    for (const bool stop : {true, false}) {
        Command(40047);
        Ask(101);
        Play();
        stop ? Command(40047) : void(Ask(101));
        Add("a");
        EXPECT_EQ(Played(), "b");
    }
}

TEST_F(EngineTest, AnEntryBeyondTheArrivedListIsSkippedLikeAMissingOne) {
    for (const bool repeat : {false, true}) {
        Make(repeat);
        Ask(121, 5);
        Play();
        Add("ab");
        EXPECT_EQ(Played(), repeat ? "a" : "");
    }
}

TEST_F(EngineTest, AListFromBeforeTheClearIsDropped) {
    const std::int64_t before = Now();
    nowMs += 5;
    Ask(101);
    Play();
    engine->AddList(std::string("o\0", 2), before);
    EXPECT_EQ(Played(), "");
    Add("n");
    EXPECT_EQ(Played(), "n");
}

TEST_F(EngineTest, PauseTogglesAndHoldsThePosition) {
    PlayList("ab");
    nowMs += 200;
    Pause();
    nowMs += 500;
    EXPECT_EQ(State(), "3 at 200");
    Play();
    nowMs += 50;
    EXPECT_EQ(State(), "1 at 250");
    Pause();
    Pause();
    EXPECT_THAT(output.calls, ElementsAre("play a", "pause", "resume", "pause", "resume"));
}

TEST_F(EngineTest, WhatIsPausedStaysPausedWhileItOpensAndAcrossNext) {
    Add("ab");
    Play();
    Pause();
    Start();
    nowMs += 400;
    EXPECT_EQ(State(), "3 at 0");
    Event(OutputEvent::Position, 7000);
    Next();
    EXPECT_EQ(State(), "3 at 0");
    EXPECT_EQ(Ask(125), 1);
    Play();
    EXPECT_EQ(Played(), "ab");
    Start();
    EXPECT_EQ(Status(), 1);
}

TEST_F(EngineTest, StopAnswersAtOnceAndLateEventsAreOfNoTrack) {
    PlayList("ab");
    const std::uint32_t track = output.track;
    Command(40047);
    EXPECT_EQ(State(), "0 at -1");
    engine->OnEvent({OutputEvent::Ended, track, 0, {}});
    EXPECT_EQ(Played(), "a");
    EXPECT_EQ(Ask(125), 0);
}

TEST_F(EngineTest, ANewTrackNeverShowsTheOldPositionButItsPreparedFacts) {
    PlayList("abc");
    const std::uint32_t old = output.track;
    Event(OutputEvent::Position, 40000);
    Next();
    engine->OnEvent({OutputEvent::Position, old, 40250, {}});
    EXPECT_EQ(State(), "1 at 0") << "going on reads as playing";
    EXPECT_EQ(Ask(125), 1);
    EXPECT_EQ(Length(), -1);
    Start();
    EXPECT_EQ(output.prepared, "c");
    Event(OutputEvent::Prepared, 0, {5000, 320});
    Next();
    EXPECT_EQ(Ask(126, 1), 320);
    EXPECT_EQ(Length(), 5);
}

TEST_F(EngineTest, GoesThroughTheListAsRepeatAndAdvanceSay) {
    const struct {
        bool repeat, advance;
        std::string played;
    } cases[] = {
        {true, true, "aba"}, {false, true, "ab"}, {false, false, "a"}, {true, false, "aaa"}};
    for (const auto& c : cases) {
        output = {};
        Make(c.repeat, c.advance);
        PlayList("ab");
        for (int track = 0; track < 2 && Status() == 1; ++track) {
            Event(OutputEvent::Ended);
            if (output.calls.back() != "stop") Start();
        }
        EXPECT_EQ(Played(), c.played);
        EXPECT_EQ(Status(), c.repeat ? 1 : 0);
        EXPECT_EQ(output.calls.back() == "stop", !c.repeat);
    }
}

TEST_F(EngineTest, SkipsWhatCannotBePlayedInTheDirectionOfTravel) {
    Make(true);
    PlayList("abcd");
    Command(40044);
    Event(OutputEvent::Failed);
    EXPECT_EQ(Played(), "adc");
    Start();
    Event(OutputEvent::Ended);
    Event(OutputEvent::Failed);
    EXPECT_EQ(Played(), "adcda");
    EXPECT_EQ(Status(), 1);
}

TEST_F(EngineTest, AListOfNothingPlayableIsTriedOnce) {
    for (const bool repeat : {true, false}) {
        output = {};
        Make(repeat);
        Add("abc");
        Ask(121, 1);
        Play();
        for (int event = 0; event < (repeat ? 3 : 2); ++event)
            Event(OutputEvent::Failed);
        EXPECT_EQ(Played(), repeat ? "bca" : "bc");
        EXPECT_EQ(Status(), 0);
        EXPECT_EQ(output.calls.back(), "stop");
    }
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
    Ask(106, 5000);
    Ask(106, -7);
    EXPECT_EQ(output.calls.back(), "seek 0");
}

TEST_F(EngineTest, BeyondTheEndComesTheNextTrack) {
    PlayList("ab");
    Ask(106, 58000);
    Command(40148);
    EXPECT_EQ(Played(), "ab");
    Start();
    Pause();
    Ask(106, 60000);
    EXPECT_EQ(Played(), "ab");
    EXPECT_EQ(Position(), 60000);
}

TEST_F(EngineTest, TheListMayBeReplacedWhileATrackPlays) {
    PlayList("abc");
    Ask(101);
    Event(OutputEvent::Position, 5000);
    EXPECT_EQ(State(), "1 at 5000");
    Add("xy");
    EXPECT_EQ(Played(), "a");
    Event(OutputEvent::Ended);
    EXPECT_EQ(Played(), "ax");
    Ask(101);
    Start();
    Event(OutputEvent::Ended);
    EXPECT_EQ(Status(), 0);
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
    for (int track = 0; track < 15; ++track)
        Next();
    std::string order = Played();
    EXPECT_NE(order, "abcdefghijklmnop");
    std::sort(order.begin(), order.end());
    EXPECT_EQ(order, "abcdefghijklmnop");
}

} // namespace
} // namespace vk::test
