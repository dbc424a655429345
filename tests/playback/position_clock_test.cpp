#include "playback/audio/position_clock.h"
#include "tests/playback/audio_fixture.h"

namespace vk::test {

struct PositionClockTest : testing::Test, CoreFixture {
    SimulatedProcess process;
    cWinamp winamp{{process.wire, pump, report, app.Path()}};
    PositionClock position{winamp, clock, state.InSuspend};
    PositionClockTest() { process.status = 1; }
    /// The position after each of so many seconds, from the time that the process is at.
    std::vector<double> Seconds(int count, std::int32_t processAt, bool paused = false) {
        process.positionMs = processAt;
        std::vector<double> seen;
        for (int second = 0; second < count; ++second) {
            clock.Advance(1000);
            position.Refresh(paused);
            seen.push_back(position.Position());
        }
        return seen;
    }
};

TEST_F(PositionClockTest, AsksOnceCountsByItselfAndAsksAgainWhenItPassesTheEnd) {
    process.length = 11; // counted as 10
    EXPECT_THAT(Seconds(1, 4900), ElementsAre(4));
    const auto asked = process.Count(105);
    EXPECT_THAT(Seconds(6, 2000), ElementsAre(5, 6, 7, 8, 9, 10));
    EXPECT_EQ(process.Count(105), asked);
    EXPECT_THAT(Seconds(2, 2000), ElementsAre(2, 3));
    position.Stepped(); // from then on it asks each time
    for (const int second : {8, 50, 9})
        EXPECT_THAT(Seconds(1, second * 1000), ElementsAre(second));
}

TEST_F(PositionClockTest, AClockThatIsSetChangesNothingAndMidnightIsReadAfter) {
    Seconds(1, 60'000);
    for (const int jump : {40, 0, 59}) { // seconds of the minute
        clock.SetNow({2026, 11, 21, 12, 0, jump, 0, 6});
        EXPECT_THAT(Seconds(1, 61'000), ElementsAre(61));
    }
    const auto asked = process.Count(105);
    EXPECT_THAT(Seconds(2, 62'000), ElementsAre(62, 63));
    EXPECT_EQ(process.Count(105), asked) << "it counts by itself again";
    clock.SetNow({2026, 11, 21, 23, 59, 56, 0, 6});
    EXPECT_THAT(Seconds(1, 59'000), ElementsAre(59));
    EXPECT_THAT(Seconds(3, 60'000), ElementsAre(60, 61, testing::Lt(0)));
    EXPECT_EQ(position.TrackTime(false), "TrackTime: 2:59");
    EXPECT_THAT(Seconds(2, 63'000), ElementsAre(63, 64));
}

TEST_F(PositionClockTest, TellsTheTimeAndIsUnknownWhilePausedAndStandsStillWhileSuspended) {
    process.length = 66; // counted as 65
    Seconds(1, 4000);
    EXPECT_EQ(position.TrackTime(true), "TrackTime: 0:04");
    EXPECT_EQ(position.TrackTime(false), "TrackTime: 1:01");
    state.InSuspend = true;
    EXPECT_THAT(Seconds(1, 9000), ElementsAre(4));
    EXPECT_THAT(Seconds(1, 9000, true), ElementsAre(4));
    state.InSuspend = false;
    Seconds(1, 9000, true);
    EXPECT_FALSE(position.Known());
    process.length = 0;
    position.NewTrack();
    Seconds(1, 9000);
    for (const bool elapsed : {true, false})
        EXPECT_EQ(position.TrackTime(elapsed), "TrackTime: -:--");
}

} // namespace vk::test
