#include "core/commands.h"
#include "tests/support/core_test.h"
#include "tests/support/recording_screen.h"

namespace vk::test {
namespace {

using PumpTest = CoreTest;

TEST_F(PumpTest, AWaitEndsByItsAnswerItsTimeOrByBeingEnded) {
    int asked = 0;
    EXPECT_EQ(pump.Until({"a", [&] { return ++asked == 3; }, 1000, 50}), Waited::Done);
    EXPECT_EQ(clock.TickMs(), 100);
    EXPECT_EQ(pump.Until({"b", [] { return false; }, 130, 50}), Waited::TimedOut);
    EXPECT_EQ(clock.TickMs(), 230);
    const auto timer = clock.MakeTimer([&] {
        EXPECT_EQ(pump.What(), "c");
        pump.EndAll();
    });
    timer->Start(70);
    EXPECT_EQ(pump.Until({"c", [] { return false; }}), Waited::Ended);
    EXPECT_FALSE(pump.Waiting());
    timer->Stop();
    EXPECT_FALSE(pump.Pause("still ending", 10));
    pump.Allow();
    EXPECT_TRUE(pump.Pause("d", 10));
    pump.Close();
    EXPECT_FALSE(pump.Pause("e", 10));
    EXPECT_FALSE(pump.Turn());
    EXPECT_EQ(pump.Until({"f", [] { return true; }}), Waited::Done) << "it is there all the same";
}

TEST_F(PumpTest, AnInnerWaitIsHeldToTheTimeOfTheOuterButTheUserHasHis) {
    const auto inner = clock.MakeTimer([&] { pump.Pause("inner", 5000); });
    inner->Start(100);
    EXPECT_EQ(pump.Until({"outer", [] { return false; }, 300, 50}), Waited::TimedOut);
    EXPECT_EQ(clock.TickMs(), 300);
    inner->Stop();
    bool asked = false;
    const auto question = clock.MakeTimer([&] {
        if (std::exchange(asked, true)) return;
        const auto end = clock.TickMs() + 60000;
        pump.Until(
            {.what = "question", .done = [&] { return clock.TickMs() >= end; }, .byUser = true});
    });
    question->Start(100);
    EXPECT_EQ(pump.Until({"outer", [] { return false; }, 300, 50}), Waited::TimedOut);
    EXPECT_EQ(clock.TickMs(), 300 + 300 + 60000);
}

TEST_F(PumpTest, WorkPulsesSeldomAndStopsWhenItIsToldTo) {
    Work work(pump, "rows");
    for (int i = 0; i < 10; ++i)
        EXPECT_TRUE(work.Pulse());
    EXPECT_EQ(clock.eventRuns, 1);
    clock.Advance(5);
    clock.onEvents = [&] { pump.EndAll(); };
    EXPECT_FALSE(work.Pulse());
    EXPECT_TRUE(work.Ended());
}

TEST_F(PumpTest, ACommandWhileOneRunsIsDroppedFollowsOrEndsIt) {
    screens.CurrentForm = "playlists";
    std::string ran;
    const auto command = [&](const char* name) { return [&ran, name] { ran += name; }; };
    const auto busy = [&](Commands::When when, int afterMs, const std::function<void()>& then) {
        ran.clear();
        commands.Run([&] {
            EXPECT_TRUE(commands.ListBusy());
            const bool ended = !pump.Pause("first part", afterMs) ||
                               (commands.Run(when, command("B")), !pump.Pause("rest", 1000));
            if (then) then();
            ran += ended ? "ended " : "whole ";
        });
        EXPECT_FALSE(commands.ListBusy());
        return ran;
    };
    EXPECT_EQ(busy(Commands::When::Drop, 300, {}), "whole ");
    EXPECT_EQ(busy(Commands::When::Queue, 300, {}), "whole B");
    EXPECT_EQ(busy(Commands::When::Interrupt, 300, {}), "ended B");
    EXPECT_EQ(busy(Commands::When::Interrupt, 200, {}), "whole ") << "meant for what was before";
    EXPECT_EQ(busy(Commands::When::Queue, 300, [&] { screens.CurrentForm = "velkorandum"; }),
              "whole ")
        << "its screen has gone";
    commands.Close();
    EXPECT_FALSE(commands.Run(command("C")));
}

} // namespace
} // namespace vk::test
