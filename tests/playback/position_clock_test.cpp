#include "playback/audio/position_clock.h"
#include "tests/playback/audio_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {

struct PositionClockTest : testing::Test, CoreFixture {
    SimulatedProcess process;
    cWinamp winamp{{process.wire, clock, report, app.Path()}};
    PositionClock position{winamp, clock, state.InSuspend};
    PositionClockTest() { process.status = 1; }
    std::int64_t Asked() const { return process.Count(105); }
    double Second(bool paused = false) {
        clock.Advance(1000);
        position.Refresh(paused);
        return position.Position();
    }
};

TEST_F(PositionClockTest, AsksOnceAndThenCountsByItself) {
    process.positionMs = 5900;
    EXPECT_EQ(Second(), 5);
    const auto asked = Asked();
    for (int i = 6; i <= 35; ++i)
        EXPECT_EQ(Second(), i);
    EXPECT_EQ(Asked(), asked);
}

TEST_F(PositionClockTest, AsksAgainWhenItPassesTheEnd) {
    process.length = 11; // counted as 10
    for (int i = 0; i <= 10; ++i)
        EXPECT_EQ(Second(), i);
    process.positionMs = 2000;
    EXPECT_EQ(Second(), 2);
}

TEST_F(PositionClockTest, ReadsAgainTheSecondAfterMidnight) {
    clock.SetNow({2026, 11, 21, 23, 59, 57, 0, 6});
    process.positionMs = 60000;
    Second(); // 23:59:58
    EXPECT_EQ(Second(), 61);
    EXPECT_LT(Second(), 0); // 0:00:00
    EXPECT_EQ(position.TrackTime(false), "TrackTime: 2:59");
    process.positionMs = 63000;
    EXPECT_EQ(Second(), 63);
    EXPECT_EQ(Second(), 64);
}

TEST_F(PositionClockTest, AsksEverySecondForGoodAfterAStep) {
    Second();
    position.Stepped();
    for (int i = 1; i <= 3; ++i) {
        process.positionMs = i * 50000;
        EXPECT_EQ(Second(), i * 50);
    }
}

TEST_F(PositionClockTest, IsUnknownWhilePausedAndStandsStillWhileSuspended) {
    process.positionMs = 7000;
    Second();
    state.InSuspend = true;
    Second();
    EXPECT_EQ(Second(true), 7);
    state.InSuspend = false;
    Second(true);
    EXPECT_FALSE(position.Known());
}

TEST_F(PositionClockTest, TellsTheTimeGoneOrLeft) {
    process.length = 66; // counted as 65
    process.positionMs = 4000;
    Second();
    EXPECT_EQ(position.TrackTime(true), "TrackTime: 0:04");
    EXPECT_EQ(position.TrackTime(false), "TrackTime: 1:01");
    process.length = 0;
    position.NewTrack();
    Second();
    for (const bool elapsed : {true, false})
        EXPECT_EQ(position.TrackTime(elapsed), "TrackTime: -:--");
}

} // namespace vk::test
