#include "playback/audio/position_clock.h"
#include "tests/playback/audio_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {

struct PositionClockTest : testing::Test, CoreFixture {
    SimulatedProcess process;
    cWinamp winamp{{process.wire, clock, report, app.Path()}};
    PositionClock position{winamp, clock, state.InSuspend};
    std::int64_t Asked() const { return process.Count(105); }
    void Second(bool paused = false) {
        clock.Advance(1000);
        position.Refresh(paused);
    }
};

TEST_F(PositionClockTest, AsksOnceAndThenCountsByItself) {
    process.positionMs = 5900;
    Second();
    EXPECT_EQ(position.Position(), 5);
    const auto asked = Asked();
    for (int i = 0; i < 30; ++i)
        Second();
    EXPECT_EQ(position.Position(), 35);
    EXPECT_EQ(Asked(), asked);
}

TEST_F(PositionClockTest, AsksAgainWhenItPassesTheEnd) {
    process.length = 11; // counted as 10
    for (int i = 0; i < 11; ++i)
        Second();
    EXPECT_EQ(position.Position(), 10);
    process.positionMs = 2000;
    Second();
    EXPECT_EQ(position.Position(), 2);
}

TEST_F(PositionClockTest, ReadsAgainTheSecondAfterMidnight) {
    clock.SetNow({2026, 11, 21, 23, 59, 57, 0, 6});
    process.positionMs = 60000;
    Second(); // 23:59:58
    Second();
    EXPECT_EQ(position.Position(), 61);
    Second(); // 0:00:00
    EXPECT_LT(position.Position(), 0);
    process.positionMs = 63000;
    Second();
    EXPECT_EQ(position.Position(), 63);
    Second();
    EXPECT_EQ(position.Position(), 64);
}

TEST_F(PositionClockTest, AsksEverySecondForGoodAfterAStep) {
    Second();
    position.Stepped();
    for (int i = 1; i <= 3; ++i) {
        process.positionMs = i * 50000;
        Second();
        EXPECT_EQ(position.Position(), i * 50);
    }
}

TEST_F(PositionClockTest, IsUnknownWhilePausedAndStandsStillWhileSuspended) {
    process.positionMs = 7000;
    Second();
    state.InSuspend = true;
    Second();
    Second(true);
    EXPECT_EQ(position.Position(), 7);
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
    EXPECT_EQ(position.TrackTime(true), "TrackTime: -:--");
    EXPECT_EQ(position.TrackTime(false), "TrackTime: -:--");
}

} // namespace vk::test
