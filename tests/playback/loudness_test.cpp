#include "playback/audio/volume_label.h"
#include "playback/loudness.h"
#include "tests/playback/audio_fixture.h"

namespace vk::test {

struct LoudnessTest : testing::Test, CoreFixture {
    SoundCard sound{*this};
    FakeMixer& mixer = sound.mixer;
    Loudness& volume = sound.loudness;
    RecordingView view;
    VolumeLabel label{base, volume, view};
    std::int32_t& master = mixer.Level(MixerLine::Master);
    std::int32_t& wave = mixer.Level(MixerLine::Wave);
    std::int32_t& muted = mixer.Mute(MixerLine::Master);
    LoudnessTest() {
        settings.values.AdjMainVol = true;
        settings.values.mutespeed = 50;
        master = 500;
    }
    std::string Card() const { return std::to_string(master) + (muted ? " muted" : ""); }
    /// Mutes or comes back, and waits for the end of the fade; its length in milliseconds.
    int Fade() {
        const std::int64_t begun = clock.TickMs();
        for (volume.domute(); volume.Fading();)
            clock.Advance(1);
        return static_cast<int>(clock.TickMs() - begun);
    }
    /// A card comes, or another one, as loud or as silent as it was switched on.
    std::string CardComes(std::int32_t scale, std::int32_t level, bool mute) {
        mixer.Change(true, scale);
        master = level;
        muted = mute;
        volume.CardCame();
        return Card();
    }
    std::int32_t FirstLevel() {
        volume.Enter(setting::AudioVolume);
        return master;
    }
    auto Kept() { return volume.LevelToKeep(setting::AudioVolume); }
};

TEST_F(LoudnessTest, MovesByAFiftiethOfItsLineAndStopsAtTheEnds) {
    volume.VolUp();
    EXPECT_EQ(master, 520);
    EXPECT_EQ(view.volumes.back(), "      Volume : 52%");
    EXPECT_EQ(volume.Percent(), 52);
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
    label.HideWhenOld(false);
    EXPECT_NE(view.volumes.back(), "");
    clock.Advance(1000);
    label.HideWhenOld(true);
    EXPECT_NE(view.volumes.back(), "");
    label.HideWhenOld(false);
    EXPECT_EQ(view.volumes.back(), "");
    EXPECT_NEAR(Fade(), 27 * 50, 20);
}

TEST_F(LoudnessTest, FadesOutAndInAStepATickWhileItsKeysAreIgnored) {
    settings.values.mutespeed = 500; // as slow a one keeps the text on show
    volume.domute();
    EXPECT_EQ(view.volumes.back(), "      Volume : 48%");
    for (int step = 2; step <= 25; ++step) {
        clock.Advance(500);
        EXPECT_EQ(master, 500 - 20 * step);
        volume.domute();
        volume.VolUp();
        label.HideWhenOld(false);
        EXPECT_EQ(Kept(), 500);
    }
    clock.Advance(500);
    EXPECT_EQ(view.volumes.size(), 26u);
    EXPECT_EQ(view.volumes.back(), "      Volume : Muted");
    volume.VolUp();
    EXPECT_EQ(Card(), "0 muted");
    EXPECT_EQ(clock.slept + clock.eventRuns, 0) << "nothing waits for it";
    settings.values.mutespeed = 0;
    EXPECT_EQ(Fade(), 25);
    EXPECT_EQ(Card(), "500");
    EXPECT_FALSE(volume.Muted());
}

TEST_F(LoudnessTest, EndsTheFadeAtOnceWhenTheScreenIsLeft) {
    settings.values.mutespeed = 1000;
    for (const char* end : {"0 muted", "500"}) {
        screens.CurrentForm = "playmp3";
        volume.domute();
        screens.CurrentForm = "velkorandum";
        volume.RestoreMute(); // as the menu does
        clock.Advance(20);
        EXPECT_EQ(Card(), end);
        EXPECT_FALSE(volume.Fading());
    }
    EXPECT_NEAR(Fade(), 25 * 1000, 20) << "from another screen it fades";
}

TEST_F(LoudnessTest, AMuteOutlivesItsScreenAndEndsWithTheLevelOfBefore) {
    pump.Until({"list", [&] { return Fade() > 0; }});
    EXPECT_TRUE(view.volumes.empty()) << "the title of a list that is on its way is left alone";
    EXPECT_EQ(Kept(), 500);
    VolumeLabel anew{base, volume, view};
    anew.Enter();
    EXPECT_THAT(view.volumes, ElementsAre("      Volume : Muted"));
    volume.Unload();
    EXPECT_EQ(Card(), "500 muted");
    EXPECT_NEAR(Fade(), 25 * 50, 20) << "from silence all the same";
    EXPECT_EQ(Card(), "500");
    volume.domute();
    volume.Unload(); // the system ends in the fade
    EXPECT_EQ(Card(), "500 muted");
}

TEST_F(LoudnessTest, ACardThatComesTakesOverMuteAndLevel) {
    volume.VolUp();
    EXPECT_EQ(CardComes(100, 100, true), "52");
    Fade();
    EXPECT_EQ(CardComes(1000, 900, false), "0 muted");
    mixer.Change(false);
    EXPECT_EQ(Kept(), std::nullopt);
    EXPECT_EQ(Fade(), 0) << "nothing to fade while there is none";
    EXPECT_EQ(CardComes(1000, 1000, true), "520");
    for (const char* end : {"0 muted", "52"}) {
        mixer.Change(true);
        volume.domute();
        clock.Advance(100);
        CardComes(100, 100, true); // into a fade
        clock.Advance(5000);
        EXPECT_EQ(Card(), end);
    }
    mixer.mutes = false; // one without a mute is silenced by its level
    CardComes(1000, 500, false);
    Fade();
    volume.VolUp(); // locked
    EXPECT_EQ(CardComes(1000, 800, false), "0");
    volume.Unload();
    EXPECT_EQ(Card(), "0");
    Fade();
    EXPECT_EQ(Card(), "520");
}

TEST_F(LoudnessTest, EachPlayerHasALevelOfItsOwnCutOnceARunWhenItIsLoud) {
    settings.values.safevolume = true;
    settings.values.safevol_value = 36;
    mixer.Change(false);
    FirstLevel();
    volume.VolUp(), volume.domute();
    EXPECT_TRUE(view.volumes.empty()) << "without a card";
    EXPECT_EQ(CardComes(1000, 800, false), "360"); // it gets what it missed
    settings.values.UseSplitVolume = true;
    master = 800;
    EXPECT_EQ(FirstLevel(), 800) << "none of its own yet";
    EXPECT_EQ(Kept(), 800);
    EXPECT_EQ(volume.LevelToKeep(setting::VideoVolume), std::nullopt) << "another's";
    settings.Write("audio_player", "Volume", "440");
    settings.values.AdjMainVol = false;
    wave = 7;
    EXPECT_EQ(FirstLevel(), 440);
    EXPECT_EQ(wave, 800) << "the level of before";
    for (const char* otherCards : {"70000", "-1"}) {
        settings.Write("audio_player", "Volume", otherCards);
        EXPECT_EQ(FirstLevel(), 440);
    }
    Loudness anew(base, sound.volume); // another run
    anew.CutAtStart();
    EXPECT_EQ(master, 360);
    master = 440;
    anew.Enter(setting::AudioVolume);
    EXPECT_EQ(master, 360) << "the player's own was still to come";
}

} // namespace vk::test
