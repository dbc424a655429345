#include "playback/audio/player_volume.h"
#include "tests/playback/audio_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {

struct PlayerVolumeTest : testing::Test, CoreFixture {
    FakeMixer mixer;
    FakeWaveInput input;
    cVolume card{{mixer, input, dialogs, report}};
    RecordingView view;
    PlayerVolume volume{{card, settings, state, clock, view}};
    std::int32_t& master = mixer.Level(MixerLine::Master);
    std::int32_t& wave = mixer.Level(MixerLine::Wave);
    std::int32_t& muted = mixer.Mute(MixerLine::Master);
    PlayerVolumeTest() {
        settings.values.AdjMainVol = true;
        settings.values.mutespeed = 50;
        master = 500;
    }
};

TEST_F(PlayerVolumeTest, MovesByAFiftiethOfItsLineAndStopsAtTheEnds) {
    volume.VolUp();
    EXPECT_EQ(master, 520);
    EXPECT_EQ(view.volumes.back(), "      Volume : 52%");
    EXPECT_EQ(state.VolumePercent, 52);
    EXPECT_EQ(wave, 0);
    master = 990;
    volume.VolUp();
    EXPECT_EQ(view.volumes.size(), 1u);
    master = 15;
    volume.VolDown();
    EXPECT_EQ(master, 0);
    master = 500;
    settings.values.AdjMainVol = false; // the wave line goes along
    mixer.waveMaximum = 500;
    mixer.Change(true, 65536); // another card
    master = 32768;
    volume.VolUp();
    EXPECT_EQ(master, 32768 + 1310);
    EXPECT_EQ(wave, 259);
    volume.domute();
    EXPECT_EQ(clock.slept, 27 * 50);
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
    EXPECT_EQ(muted, 1);
    EXPECT_EQ(master, 0);
    EXPECT_EQ(clock.slept, 25 * 50);
    EXPECT_EQ(view.volumes.back(), "      Volume : Muted");
    volume.VolUp();
    EXPECT_EQ(master, 0);
    settings.values.mutespeed = 0;
    volume.domute();
    EXPECT_EQ(muted, 0);
    EXPECT_EQ(master, 500);
    EXPECT_EQ(clock.slept, 25 * 50 + 25);
}

TEST_F(PlayerVolumeTest, FadesAStepATickWithEventsAmongWhichKeysAreIgnored) {
    std::vector<std::int32_t> steps;
    settings.values.mutespeed = 20; // of a slower one events run meanwhile, too
    clock.onEvents = [&] {
        EXPECT_EQ(clock.slept, 20 * std::int64_t(steps.size() + 1));
        steps.push_back(master);
        volume.domute();
        volume.VolUp();
        volume.HideWhenOld(false);
    };
    volume.domute();
    ASSERT_EQ(steps.size(), 25u);
    EXPECT_EQ(steps.front(), 480);
    EXPECT_EQ(steps.back(), 0);
    EXPECT_EQ(view.volumes.size(), 26u);
    EXPECT_TRUE(state.bMuted);
}

TEST_F(PlayerVolumeTest, AMuteWhileAListIsLoadedLeavesTheTitleAlone) {
    state.ListBusy = true;
    volume.domute();
    EXPECT_TRUE(view.volumes.empty());
    EXPECT_EQ(muted, 1);
    volume.domute();
    EXPECT_EQ(view.volumes.back(), "      Volume : 50%");
}

TEST_F(PlayerVolumeTest, EndsTheFadeAtOnceWhenTheScreenIsLeft) {
    clock.onEvents = [&] { volume.Leave(); };
    volume.domute();
    EXPECT_EQ(clock.eventRuns, 1);
    EXPECT_EQ(master, 0);
    EXPECT_EQ(muted, 1);
    clock.onEvents = {};
    volume.domute(); // from another screen it fades
    EXPECT_EQ(clock.eventRuns, 1 + 25 * 3);
    EXPECT_EQ(master, 500);
}

TEST_F(PlayerVolumeTest, AMuteOutlivesItsScreenAndEndsWithTheLevelOfBefore) {
    clock.onEvents = [&] { EXPECT_EQ(volume.LevelToKeep(), 500); };
    volume.domute();
    PlayerVolume anew{{card, settings, state, clock, view}};
    EXPECT_EQ(anew.LevelToKeep(), 500);
    view.volumes.clear();
    anew.Enter();
    EXPECT_EQ(view.volumes, std::vector<std::string>{"      Volume : Muted"});
    muted = 0;
    anew.CardCame();
    EXPECT_EQ(muted, 1);
    anew.Unload();
    EXPECT_EQ(master, 500);
    EXPECT_EQ(muted, 1);
    anew.domute();
    EXPECT_EQ(clock.slept, 2 * 25 * 50);
    EXPECT_EQ(master, 500);
}

TEST_F(PlayerVolumeTest, ACardThatGoesEndsTheFade) {
    clock.onEvents = [&] { mixer.Change(false); };
    volume.domute();
    EXPECT_EQ(volume.LevelToKeep(), std::nullopt);
    volume.domute();
    EXPECT_LE(clock.slept, 2 * 50);
    EXPECT_FALSE(state.bMuted);
}

TEST_F(PlayerVolumeTest, EntersWithALevelOfItsOwnCutOnceARunWhenItIsLoud) {
    settings.values.safevolume = true;
    settings.values.safevol_value = 36;
    mixer.Change(false);
    volume.SetFirstLevel();
    mixer.Change(true);
    master = 800;
    volume.CardCame(); // it gets what it missed
    EXPECT_EQ(master, 360);
    settings.values.UseSplitVolume = true;
    master = 800;
    volume.SetFirstLevel(); // none of its own yet
    EXPECT_EQ(master, 800);
    settings.Write("audio_player", "Volume", "440");
    settings.values.AdjMainVol = false;
    wave = 7;
    volume.SetFirstLevel();
    EXPECT_EQ(master, 440);
    EXPECT_EQ(wave, 800); // the level of before
    state.SafeVolumeDone = false;
    volume.SetFirstLevel();
    EXPECT_EQ(master, 360);
    settings.Write("audio_player", "Volume", "70000"); // from another card
    volume.SetFirstLevel();
    EXPECT_EQ(master, 1000);
}

} // namespace vk::test
