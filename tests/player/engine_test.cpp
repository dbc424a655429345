#include "platform/player_window.h"
#include "player/engine/engine.h"
#include "tests/player/recording_output.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <sstream>

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
    std::int32_t Ask(std::int32_t function, std::int64_t argument = 0) {
        return engine->Message({WM_USER, static_cast<std::int32_t>(argument), function}).value();
    }
    void Command(std::int32_t id) { EXPECT_EQ(engine->Message({WM_COMMAND, id, 0}), 0); }
    void Event(OutputEvent::Kind kind, std::int64_t ms = 0, TrackFacts facts = {}) {
        const auto track = kind == OutputEvent::Prepared ? output.preparedTrack : output.track;
        engine->OnEvent({kind, track, ms, facts});
    }
    /// A step of a script, with the number behind its colon.
    void Step(const std::string& verb, std::int64_t number) {
        static const std::map<std::string, std::int32_t> commands = {
            {"play", 40045}, {"pause", 40046}, {"stop", 40047}, {"next", 40048},
            {"prev", 40044}, {"ff", 40148},    {"rw", 40144},   {"shuffle", 40023}};
        static const std::map<std::string, std::int32_t> functions = {
            {"clear", 101}, {"seek", 106}, {"index", 121}};
        static const std::map<std::string, OutputEvent::Kind> events = {
            {"at", OutputEvent::Position},
            {"ended", OutputEvent::Ended},
            {"failed", OutputEvent::Failed}};
        if (commands.contains(verb))
            Command(commands.at(verb));
        else if (functions.contains(verb))
            EXPECT_EQ(Ask(functions.at(verb), number), 0);
        else if (events.contains(verb))
            Event(events.at(verb), number);
        else if (verb == "wait")
            nowMs += number;
        else if (verb == "start")
            Event(OutputEvent::Started, 0, {number > 0 ? number : 60000, 128}); // ms, kbit/s
        else
            ADD_FAILURE() << verb;
    }
    /// "play seek:500 add:ab": commands, functions, events of the output, tracks of one letter.
    /// Status (0 stopped, 1 playing, 3 paused), position and all that was played come back.
    std::string Run(const std::string& script) {
        std::istringstream words(script);
        for (std::string word; words >> word;) {
            const auto colon = std::min(word.find(':'), word.size());
            const std::string value = colon < word.size() ? word.substr(colon + 1) : "0";
            if (word.substr(0, colon) != "add") {
                Step(word.substr(0, colon), std::stoll(value));
                continue;
            }
            std::string paths;
            for (const char name : value)
                paths.append(1, name).push_back('\0');
            engine->AddList(paths, Now());
        }
        return std::to_string(Ask(104)) + " at " + std::to_string(Ask(105, 0)) + " " +
               std::accumulate(output.played.begin(), output.played.end(), std::string());
    }
    int Length() { return Ask(105, 1); }

    std::int64_t nowMs = 1000;
    RecordingOutput output;
    std::unique_ptr<Engine> engine;
};

TEST_F(EngineTest, AnswersWhenNothingIsLoaded) {
    EXPECT_EQ(Run(""), "0 at -1 ");
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
    EXPECT_EQ(Run("add:ab play"), "0 at 0 a");
    EXPECT_EQ(Run("start:61999 wait:130"), "1 at 130 a");
    EXPECT_EQ(engine->File(), "a");
    EXPECT_EQ(Length(), 61);
    EXPECT_EQ(Ask(126, 1), 128);
    EXPECT_EQ(Run("at:250 wait:100"), "1 at 350 a");
    EXPECT_EQ(Run("wait:100000"), "1 at 1250 a") << "a stuck output's position stands still";
    EXPECT_EQ(Run("play"), "1 at 0 aa") << "from the beginning again";
}

TEST_F(EngineTest, APlayThatComesBeforeItsListIsRememberedUntilStopOrClear) {
    EXPECT_EQ(Run("stop clear index:1 play"), "0 at -1 ");
    EXPECT_EQ(Run("add:abc add:d"), "0 at 0 b");
    for (const std::string forget : {"stop", "clear"})
        EXPECT_EQ(Run("stop clear play " + forget + " add:a"), "0 at -1 b");
    for (const bool repeat : {false, true}) { // an entry beyond the list is skipped like any
        Make(repeat);
        output = {};
        Run("index:5 play add:ab");
        EXPECT_EQ(output.played, std::vector<std::string>(repeat ? 1 : 0, "a"));
    }
}

TEST_F(EngineTest, AListFromBeforeTheClearIsDropped) {
    const std::int64_t before = Now();
    Run("wait:5 clear play");
    engine->AddList(std::string("o\0", 2), before);
    EXPECT_EQ(Run("add:n"), "0 at 0 n");
}

TEST_F(EngineTest, PauseTogglesAndHoldsThePosition) {
    EXPECT_EQ(Run("add:ab play start wait:200 pause wait:500"), "3 at 200 a");
    EXPECT_EQ(Run("play wait:50"), "1 at 250 a");
    Run("pause pause");
    EXPECT_THAT(output.calls, ElementsAre("play a", "pause", "resume", "pause", "resume"));
}

TEST_F(EngineTest, WhatIsPausedStaysPausedWhileItOpensAndAcrossNext) {
    EXPECT_EQ(Run("add:ab play pause start wait:400"), "3 at 0 a");
    EXPECT_EQ(Run("at:7000 next"), "3 at 0 a");
    EXPECT_EQ(Ask(125), 1);
    EXPECT_EQ(Run("play start"), "1 at 0 ab");
}

TEST_F(EngineTest, StopAnswersAtOnceAndLateEventsAreOfNoTrack) {
    Run("add:ab play start");
    const std::uint32_t track = output.track;
    EXPECT_EQ(Run("stop"), "0 at -1 a");
    engine->OnEvent({OutputEvent::Ended, track, 0, {}});
    EXPECT_EQ(Run(""), "0 at -1 a");
    EXPECT_EQ(Ask(125), 0);
}

TEST_F(EngineTest, ANewTrackNeverShowsTheOldPositionButItsPreparedFacts) {
    Run("add:abc play start");
    const std::uint32_t old = output.track;
    Run("at:40000 next");
    engine->OnEvent({OutputEvent::Position, old, 40250, {}});
    EXPECT_EQ(Run(""), "1 at 0 ab") << "going on reads as playing";
    EXPECT_EQ(Ask(125), 1);
    EXPECT_EQ(Length(), -1);
    Run("start");
    EXPECT_EQ(output.prepared, "c");
    Event(OutputEvent::Prepared, 0, {5000, 320});
    Run("next");
    EXPECT_EQ(Ask(126, 1), 320);
    EXPECT_EQ(Length(), 5);
}

TEST_F(EngineTest, GoesThroughTheListAsRepeatAndAdvanceSay) {
    const struct {
        bool repeat, advance;
        std::string end;
    } cases[] = {{true, true, "1 at 0 aba"},
                 {false, true, "0 at -1 ab"},
                 {false, false, "0 at -1 a"},
                 {true, false, "1 at 0 aaa"}};
    for (const auto& c : cases) {
        output = {};
        Make(c.repeat, c.advance);
        Run("add:ab play start");
        for (int track = 0; track < 2 && Ask(104) == 1; ++track)
            Run(Run("ended").starts_with("1") ? "start" : "");
        EXPECT_EQ(Run(""), c.end);
        EXPECT_EQ(output.calls.back() == "stop", !c.repeat);
    }
}

TEST_F(EngineTest, SkipsWhatCannotBePlayedInTheDirectionOfTravelAndTriesEachOnce) {
    Make(true);
    EXPECT_EQ(Run("add:abcd play start prev failed"), "1 at 0 adc");
    EXPECT_EQ(Run("start ended failed"), "1 at 0 adcda");
    for (const bool repeat : {true, false}) {
        output = {};
        Make(repeat);
        EXPECT_EQ(Run(repeat ? "add:abc index:1 play failed failed failed"
                             : "add:abc index:1 play failed failed"),
                  repeat ? "0 at -1 bca" : "0 at -1 bc");
        EXPECT_EQ(output.calls.back(), "stop");
    }
}

TEST_F(EngineTest, SeeksAndJumpsWithinTheTrack) {
    EXPECT_EQ(Run("add:ab play start seek:30000"), "1 at 30000 a");
    EXPECT_EQ(Run("at:900"), "1 at 30000 a") << "a report from before the seek";
    EXPECT_EQ(Run("wait:500 at:30400"), "1 at 30400 a");
    EXPECT_EQ(Run("ff rw rw"), "1 at 25400 a");
    for (const char* beforeTheBeginning : {"seek:1000 rw", "seek:5000 seek:-7"}) {
        Run(beforeTheBeginning);
        EXPECT_EQ(output.calls.back(), "seek 0");
    }
    EXPECT_EQ(Run("seek:58000 ff"), "1 at 0 ab") << "beyond the end comes the next track";
    EXPECT_EQ(Run("start pause seek:60000"), "3 at 60000 ab");
}

TEST_F(EngineTest, TheListMayBeReplacedWhileATrackPlays) {
    EXPECT_EQ(Run("add:abc play start clear at:5000"), "1 at 5000 a");
    EXPECT_EQ(Run("add:xy"), "1 at 5000 a");
    EXPECT_EQ(Run("ended"), "1 at 0 ax");
    EXPECT_EQ(Run("clear start ended"), "0 at -1 ax");
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
    Run("add:abcdefghijklmnop play start shuffle");
    for (int track = 0; track < 15; ++track)
        Run("next");
    EXPECT_FALSE(std::ranges::is_sorted(output.played));
    EXPECT_THAT(std::set(output.played.begin(), output.played.end()), testing::SizeIs(16));
}

} // namespace
} // namespace vk::test
