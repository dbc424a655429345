#include "playback/audio/position_clock.h"
#include "tests/playback/audio_fixture.h"

#include <gmock/gmock.h>

namespace vk::test {

using testing::ElementsAre;

struct PositionClockTest : testing::Test, CoreFixture {
    SimulatedProcess process;
    cWinamp winamp{{process.wire, pump, report, app.Path()}};
    PositionClock position{winamp, clock, state.InSuspend};
    PositionClockTest() { process.status = 1; }
    /// The position after each of so many seconds.
    std::vector<double> Seconds(int count, bool paused = false) {
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
    process.positionMs = 4900;
    EXPECT_THAT(Seconds(1), ElementsAre(4));
    const auto asked = process.Count(105);
    EXPECT_THAT(Seconds(6), ElementsAre(5, 6, 7, 8, 9, 10));
    EXPECT_EQ(process.Count(105), asked);
    process.positionMs = 2000;
    EXPECT_THAT(Seconds(2), ElementsAre(2, 3));
    position.Stepped(); // from then on it asks each time
    for (const int second : {8, 50, 9}) {
        process.positionMs = second * 1000;
        EXPECT_THAT(Seconds(1), ElementsAre(second));
    }
}

TEST_F(PositionClockTest, ReadsAgainTheSecondAfterMidnight) {
    clock.SetNow({2026, 11, 21, 23, 59, 57, 0, 6});
    process.positionMs = 60000;
    EXPECT_THAT(Seconds(3), ElementsAre(60, 61, testing::Lt(0)));
    EXPECT_EQ(position.TrackTime(false), "TrackTime: 2:59");
    process.positionMs = 63000;
    EXPECT_THAT(Seconds(2), ElementsAre(63, 64));
}

TEST_F(PositionClockTest, IsUnknownWhilePausedAndStandsStillWhileSuspended) {
    process.positionMs = 7000;
    Seconds(1);
    state.InSuspend = true;
    EXPECT_THAT(Seconds(1), ElementsAre(7));
    EXPECT_THAT(Seconds(1, true), ElementsAre(7));
    state.InSuspend = false;
    Seconds(1, true);
    EXPECT_FALSE(position.Known());
}

TEST_F(PositionClockTest, TellsTheTimeGoneOrLeft) {
    process.length = 66; // counted as 65
    process.positionMs = 4000;
    Seconds(1);
    EXPECT_EQ(position.TrackTime(true), "TrackTime: 0:04");
    EXPECT_EQ(position.TrackTime(false), "TrackTime: 1:01");
    process.length = 0;
    position.NewTrack();
    Seconds(1);
    for (const bool elapsed : {true, false})
        EXPECT_EQ(position.TrackTime(elapsed), "TrackTime: -:--");
}

} // namespace vk::test
