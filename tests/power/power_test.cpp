// Sleep, waking and the machine's end as the machine tells of them.
#include "power/power_events.h"
#include "power/shut_down.h"
#include "tests/support/core_test.h"
#include "tests/support/power_fakes.h"

namespace vk::test {
namespace {

using testing::ElementsAre;

struct PowerTest : CoreTest {
    std::function<void()> Note(const char* what) {
        return [this, what] { done.push_back(what); };
    }
    std::vector<std::string> done;
    FakePower power;
    PowerEvents events{base,
                       {.suspend = Note("suspend"),
                        .mute = Note("mute"),
                        .resume = Note("resume"),
                        .unmute = Note("unmute")}};
    ShutDown shutDown{base, power, Note("end")};
};

TEST_F(PowerTest, TheBroadcastsLeadToOneSleepAndOneWaking) {
    const std::tuple<std::vector<int>, int, int> cases[] = {
        {{PBT_APMQUERYSUSPEND, PBT_APMSUSPEND, PBT_APMRESUMESUSPEND}, 1, 1},
        {{PBT_APMSUSPEND, PBT_APMRESUMESUSPEND}, 1, 1},
        {{PBT_APMQUERYSUSPEND, PBT_APMSUSPEND, PBT_APMRESUMECRITICAL, PBT_APMRESUMESUSPEND}, 1, 1},
        {{PBT_APMRESUMESUSPEND}, 0, 1}, // of a sleep that was not announced
        {{PBT_APMRESUMECRITICAL}, 0, 1},
        {{PBT_APMQUERYSUSPEND, PBT_APMRESUMESUSPEND, PBT_APMSUSPEND}, 2, 1},
        {{18, 10, -1}, 0, 0},
    };
    for (const auto& [messages, sleeps, wakings] : cases) {
        done.clear();
        state.InSuspend = false;
        for (const int message : messages)
            EXPECT_EQ(events.Broadcast(message, 0), message == PBT_APMQUERYSUSPEND);
        EXPECT_EQ(std::ranges::count(done, "suspend"), sleeps);
        EXPECT_EQ(std::ranges::count(done, "mute"), sleeps);
        EXPECT_EQ(std::ranges::count(done, "unmute"), wakings);
    }
}

TEST_F(PowerTest, SleepIsPreparedInOrderAndEverythingTakenBack) {
    state.WinampWatched = true;
    settings.values.hidemouse = true;
    screens.CurrentForm = "playmp3";
    power.onBroadcast = [this](int event, long data) { events.Broadcast(event, data); };
    power.Sleep();
    EXPECT_THAT(done, ElementsAre("suspend", "mute"));
    EXPECT_TRUE(state.InSuspend && !state.WinampWatched);
    power.Wake();
    EXPECT_THAT(done, ElementsAre("suspend", "mute", "resume", "unmute"));
    EXPECT_FALSE(state.InSuspend || window.cursor);
    EXPECT_TRUE(state.WinampWatched) << "a player that was lost is missed";
    EXPECT_EQ(window.foreground, 1);
    for (const char* line : {"APMSuspend Complete... Computer suspended.",
                             "SUSPEND REQUEST GRANTED - Entering Low Power Mode",
                             "PBT_APMRESUME Detected -  HEX:7 LONG:7 - 0",
                             "Begin APMResume Routines", "Finish APMResume Subroutine"})
        EXPECT_EQ(LinesLogged(line), 1) << line;
}

TEST_F(PowerTest, ShutDownModeChoosesWhatIsAskedForAndTheTimeoutAlwaysTurnsOff) {
    const std::pair<int, std::vector<PowerWish>> cases[] = {{0, {PowerWish::PowerOff}},
                                                            {1, {PowerWish::Hibernate}},
                                                            {2, {PowerWish::Suspend}},
                                                            {3, {}},
                                                            {-1, {}}};
    for (const auto& [mode, wishes] : cases) {
        power = {};
        done.clear();
        settings.values.ShutDownMode = mode;
        shutDown.PowerAction();
        EXPECT_EQ(power.wishes, wishes) << mode;
        EXPECT_TRUE(done.empty()) << "the machine has not agreed";
        if (!power.answers.empty()) power.Reply("");
        EXPECT_EQ(done.size(), mode == 0 ? 1u : 0u) << mode;
        shutDown.CompleteShutdown();
        EXPECT_EQ(power.wishes.back(), PowerWish::PowerOff);
        power.Reply("");
    }
    EXPECT_EQ(LinesLogged("Complete Shutdown initiated"), 1);
}

TEST_F(PowerTest, ARefusalIsToldAndTheSystemIsStillThere) {
    shutDown.PowerAction();
    shutDown.PowerAction();
    EXPECT_EQ(power.wishes.size(), 1u) << "one at a time";
    power.Reply("Operation inhibited");
    EXPECT_THAT(dialogs.shown,
                ElementsAre("The machine could not be turned off: Operation inhibited"));
    EXPECT_TRUE(Logged(dialogs.shown[0]));
    EXPECT_TRUE(done.empty());
    shutDown.CompleteShutdown(true);
    power.Reply("Operation inhibited");
    EXPECT_EQ(dialogs.shown.size(), 1u) << "the driver knows";
    shutDown.CompleteShutdown();
    power.Reply("");
    EXPECT_THAT(done, ElementsAre("end"));
}

} // namespace
} // namespace vk::test
