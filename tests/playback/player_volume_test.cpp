#include "playback/audio/player_volume.h"
#include "tests/playback/audio_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {

struct PlayerVolumeTest : testing::Test, CoreFixture {
    FakeMixer mixer;
    FakeWaveInput input;
    cVolume card{{mixer, input, dialogs, report}};
    RecordingView view;
    PlayerVolume volume = Anew();
    std::int32_t& master = mixer.Level(MixerLine::Master);
    std::int32_t& wave = mixer.Level(MixerLine::Wave);
    std::int32_t& muted = mixer.Mute(MixerLine::Master);
    PlayerVolumeTest() {
        settings.values.AdjMainVol = true;
        settings.values.mutespeed = 50;
        master = 500;
    }
    PlayerVolume Anew() { return PlayerVolume({card, settings, state, screens, clock, view}); }
    std::string Card() const { return std::to_string(master) + (muted ? " muted" : ""); }
    /// A card comes, or another one, as loud or as silent as it was switched on.
    std::string CardComes(std::int32_t scale, std::int32_t level, bool mute) {
        mixer.Change(true, scale);
        master = level;
        muted = mute;
        volume.CardCame();
        return Card();
    }
    std::int32_t FirstLevel() {
        volume.SetFirstLevel();
        return master;
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
    settings.values.AdjMainVol = false; // the wave line goes along
    mixer.waveMaximum = 500;
    CardComes(65536, 0, false);
    master = 32768;
    volume.VolUp();
    EXPECT_EQ(master, 32768 + 1310);
    EXPECT_EQ(wave, 259);
    clock.Advance(4000);
    volume.HideWhenOld(false);
    EXPECT_NE(view.volumes.back(), "");
    clock.Advance(1000);
    volume.HideWhenOld(true);
    EXPECT_NE(view.volumes.back(), "");
    volume.HideWhenOld(false);
    EXPECT_EQ(view.volumes.back(), "");
    volume.domute();
    EXPECT_EQ(clock.slept, 27 * 50);
}

TEST_F(PlayerVolumeTest, FadesOutAndInAStepATickWithEventsAmongWhichKeysAreIgnored) {
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
    EXPECT_EQ(view.volumes.back(), "      Volume : Muted");
    EXPECT_TRUE(state.bMuted);
    clock.onEvents = {};
    volume.VolUp();
    EXPECT_EQ(Card(), "0 muted");
    settings.values.mutespeed = 0;
    clock.slept = 0;
    volume.domute();
    EXPECT_EQ(Card(), "500");
    EXPECT_EQ(clock.slept, 25);
    EXPECT_FALSE(state.bMuted);
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
    for (const char* end : {"0 muted", "500"}) {
        clock.onEvents = [&] {
            screens.CurrentForm = "velkorandum";
            card.VolumeMute(state.bMuted); // as the menu does
        };
        screens.CurrentForm = "playmp3";
        clock.eventRuns = 0;
        volume.domute();
        EXPECT_EQ(clock.eventRuns, 1);
        EXPECT_EQ(Card(), end);
    }
    clock.onEvents = {};
    volume.domute(); // from another screen it fades
    EXPECT_EQ(clock.eventRuns, 1 + 25 * 3);
}

TEST_F(PlayerVolumeTest, AMuteOutlivesItsScreenAndEndsWithTheLevelOfBefore) {
    clock.onEvents = [&] { EXPECT_EQ(volume.LevelToKeep(), 500); };
    volume.domute();
    PlayerVolume anew = Anew();
    EXPECT_EQ(anew.LevelToKeep(), 500);
    view.volumes.clear();
    anew.Enter();
    EXPECT_EQ(view.volumes, std::vector<std::string>{"      Volume : Muted"});
    anew.Unload();
    EXPECT_EQ(Card(), "500 muted");
    volume.domute(); // from silence all the same
    EXPECT_EQ(clock.slept, 2 * 25 * 50);
    EXPECT_EQ(Card(), "500");
    clock.onEvents = [&] { volume.Unload(); }; // the system ends in the fade
    volume.domute();
    EXPECT_EQ(Card(), "500 muted");
}

TEST_F(PlayerVolumeTest, ACardWithoutAMuteIsSilencedByItsLevel) {
    mixer.mutes = false;
    mixer.Change(true);
    volume.domute();
    volume.VolUp(); // locked
    EXPECT_EQ(CardComes(1000, 800, false), "0");
    volume.Unload();
    EXPECT_EQ(Card(), "0");
    Anew().domute();
    EXPECT_EQ(Card(), "500");
}

TEST_F(PlayerVolumeTest, ACardThatComesTakesOverMuteAndLevel) {
    volume.VolUp();
    EXPECT_EQ(CardComes(100, 100, true), "52");
    volume.domute();
    EXPECT_EQ(CardComes(1000, 900, false), "0 muted");
    mixer.Change(false);
    EXPECT_EQ(volume.LevelToKeep(), std::nullopt);
    volume.domute(); // while there is none
    EXPECT_LE(clock.slept, (26 + 1) * 50) << "nothing to fade";
    EXPECT_EQ(CardComes(1000, 1000, true), "520");
    for (const char* end : {"0 muted", "52"}) { // into a fade
        clock.onEvents = [&] {
            if (mixer.maximum == 1000) CardComes(100, 100, true);
        };
        mixer.Change(true);
        volume.domute();
        EXPECT_EQ(Card(), end);
    }
}

TEST_F(PlayerVolumeTest, EntersWithALevelOfItsOwnCutOnceARunWhenItIsLoud) {
    settings.values.safevolume = true;
    settings.values.safevol_value = 36;
    mixer.Change(false);
    volume.SetFirstLevel();
    EXPECT_EQ(CardComes(1000, 800, false), "360"); // it gets what it missed
    settings.values.UseSplitVolume = true;
    EXPECT_EQ(volume.LevelToKeep(), std::nullopt) << "another's, until the player is entered";
    volume.Enter();
    EXPECT_EQ(volume.LevelToKeep(), 360);
    master = 800;
    EXPECT_EQ(FirstLevel(), 800) << "none of its own yet";
    settings.Write("audio_player", "Volume", "440");
    settings.values.AdjMainVol = false;
    wave = 7;
    EXPECT_EQ(FirstLevel(), 440);
    EXPECT_EQ(wave, 800) << "the level of before";
    for (const char* otherCards : {"70000", "-1"}) {
        settings.Write("audio_player", "Volume", otherCards);
        EXPECT_EQ(FirstLevel(), 440);
    }
    state.SafeVolumeDone = false;
    EXPECT_EQ(FirstLevel(), 360);
}

} // namespace vk::test
