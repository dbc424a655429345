#include "playback/audio/player_volume.h"
#include "tests/playback/audio_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {

/// Two lines of 1000 units that keep what they were set to.
struct FakeMixer : Mixer {
    std::map<MixerLine, std::int32_t> levels;
    bool muted = false;
    std::int32_t Min(MixerLine) const override { return 0; }
    std::int32_t Max(MixerLine) const override { return 1000; }
    std::int32_t Level(MixerLine line) const override {
        return levels.contains(line) ? levels.at(line) : 0;
    }
    void SetLevel(MixerLine line, std::int32_t level) override { levels[line] = level; }
    bool Mute(MixerLine) const override { return muted; }
    void SetMute(MixerLine, bool on) override { muted = on; }
};

struct PlayerVolumeTest : testing::Test, CoreFixture {
    FakeMixer mixer;
    RecordingView view;
    PlayerVolume volume{{&mixer, settings, state, clock, view}};
    std::int32_t& master = mixer.levels[MixerLine::Master];
    PlayerVolumeTest() {
        settings.values.AdjMainVol = true;
        settings.values.mutespeed = 50;
        master = 500;
        volume.Enter();
    }
};

TEST_F(PlayerVolumeTest, MovesByAFiftiethOfItsLineAndStopsAtTheEnds) {
    volume.VolUp();
    EXPECT_EQ(master, 520);
    EXPECT_EQ(view.volumes.back(), "      Volume : 52%");
    EXPECT_EQ(mixer.Level(MixerLine::Wave), 0);
    master = 990;
    volume.VolUp();
    EXPECT_EQ(view.volumes.size(), 1u);
    master = 15;
    volume.VolDown();
    EXPECT_EQ(master, 0);
    master = 500;
    settings.values.AdjMainVol = false; // the wave line goes along
    volume.VolDown();
    EXPECT_EQ(mixer.Level(MixerLine::Wave), 480);
}

TEST_F(PlayerVolumeTest, HidesTheTextAfterFourSeconds) {
    volume.VolUp();
    clock.Advance(4000);
    volume.HideWhenOld(false);
    EXPECT_NE(view.volumes.back(), "");
    clock.Advance(1000);
    volume.HideWhenOld(true);
    EXPECT_NE(view.volumes.back(), "");
    volume.HideWhenOld(false);
    EXPECT_EQ(view.volumes.back(), "");
}

TEST_F(PlayerVolumeTest, FadesOutAndInAgain) {
    volume.domute();
    EXPECT_TRUE(mixer.muted);
    EXPECT_EQ(master, 0);
    EXPECT_EQ(clock.slept, 25 * 50);
    EXPECT_EQ(view.volumes.back(), "      Volume : Muted");
    volume.VolUp();
    EXPECT_EQ(master, 0);
    settings.values.mutespeed = 0;
    volume.domute();
    EXPECT_FALSE(mixer.muted);
    EXPECT_EQ(master, 500);
    EXPECT_EQ(clock.slept, 25 * 50 + 25);
}

TEST_F(PlayerVolumeTest, EntersWithALevelOfItsOwnCutOnceARunWhenItIsLoud) {
    settings.values.safevolume = true;
    settings.values.safevol_value = 36;
    state.SafeVolumeDone = false;
    for (const int expected : {360, 800}) {
        master = 800;
        volume.Enter();
        EXPECT_EQ(master, expected);
    }
    settings.values.UseSplitVolume = true;
    settings.Write("audio_player", "Volume", "440");
    volume.Enter();
    EXPECT_EQ(master, 440);
}

} // namespace vk::test
