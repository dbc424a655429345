#include "tests/sound/sound_fixture.h"

namespace vk::test {

const std::vector<std::string> AllLines = {"Master Playback", "Mic Playback",   "Line Playback",
                                           "CD Playback",     "Synth Playback", "PCM Playback"};

TEST(AlsaMixer, DrivesAllSixLinesAndTheirMutes) {
    const FakeCard card(AllLines, -20, 80);
    Sound sound;
    cVolume& v = sound.volume;
    v.VolumeLevel(10), v.MicLevel(20), v.LineLevel(30), v.CDLevel(40), v.SynLevel(50),
        v.WaveLevel(100), v.LineMute(true);
    const std::int32_t read[] = {v.VolumeLevel(), v.MicLevel(), v.LineLevel(),
                                 v.CDLevel(),     v.SynLevel(), v.WaveLevel()};
    EXPECT_THAT(read, testing::ElementsAre(10, 20, 30, 40, 50, 100)) << "for the caller at once";
    for (std::size_t i = 0; i < AllLines.size(); ++i) {
        EXPECT_TRUE(Reaches(card, AllLines[i], read[i] - 20));
        EXPECT_TRUE(Soon([&] { return card.Switch(AllLines[i]) == (i == 2 ? 0 : 1); }));
    }
    EXPECT_EQ(v.VolumeMin() + v.CDMax(), 100);
    EXPECT_TRUE(v.LineMute() && !v.VolumeMute());
    EXPECT_EQ(v.MaxVolumeMeterOutput(), 0); // it has none
}

TEST(AlsaMixer, ReadsAMissingLineAsZeroAndFindsOthersUnderTheirOtherNames) {
    const FakeCard card({"Speaker Playback", "Mic Capture", "Aux Playback"});
    Sound sound;
    cVolume& v = sound.volume;
    v.CDLevel(50), v.CompactDiscMute(true);
    EXPECT_EQ(v.CDLevel() + v.CDMax() + v.WaveMax() + v.CompactDiscMute(), 0);
    v.VolumeLevel(11), v.MicLevel(12), v.MikrofonMute(true), v.LineLevel(13);
    EXPECT_TRUE(Reaches(card, "Speaker Playback", 11) && Reaches(card, "Mic Capture", 12));
    EXPECT_TRUE(Reaches(card, "Aux Playback", 13) && card.Switch("Mic Capture") == 0);
}

TEST(AlsaMixer, FollowsWhatOthersChangeAndLinesThatGo) {
    FakeCard card(AllLines);
    Sound sound;
    card.SetVolume("Master Playback", 77);
    EXPECT_TRUE(Soon([&] { return sound.volume.VolumeLevel() == 77; }));
    card.Offer(5);
    EXPECT_TRUE(Soon([&] { return sound.volume.WaveMax() == 0; }));
    sound.volume.SynLevel(9);
    EXPECT_TRUE(Reaches(card, "Synth Playback", 9));
    card.Offer(0);
    EXPECT_TRUE(Soon([&] { return sound.logged == 1; })) << "no line for the volume";
}

TEST(AlsaMixer, ALineThatCannotBeSetHoldsUpNoOther) {
    const FakeCard card(AllLines);
    Sound sound({.retryMs = 20});
    card.Refuse(true);
    unsigned session = 3;
    for (const int level : {10, 15}) {
        sound.volume.VolumeLevel(level), sound.volume.WaveLevel(level + 20);
        EXPECT_TRUE(Reaches(card, "PCM Playback", level + 20));
        EXPECT_TRUE(Soon([&] { return sound.volume.VolumeLevel() == 0; })) << "it is given up";
        EXPECT_LE(sound.mixer.Session(), session);
        session = sound.mixer.Session(); // the card is not opened anew for it again
    }
    EXPECT_EQ(sound.logged, 1);
    card.Refuse(false);
    sound.volume.VolumeLevel(20);
    EXPECT_TRUE(Reaches(card, "Master Playback", 20));
}

TEST(AlsaMixer, StartsWithoutACardAndSurvivesOneThatComesAndGoes) {
    FakeCard card(AllLines);
    card.Pull();
    Sound sound;
    EXPECT_FALSE(sound.mixer.Open());
    card.PlugIn();
    EXPECT_TRUE(Soon([&] { return sound.volume.VolumeMax() == 100; }));
    EXPECT_EQ(sound.losses, 0);
    sound.volume.VolumeLevel(60);
    EXPECT_TRUE(Reaches(card, "Master Playback", 60));
    for (int time = 1; time <= 2; ++time) {
        card.Pull();
        EXPECT_TRUE(Soon([&] { return sound.losses == time; }));
        sound.volume.VolumeLevel(99); // nobody is there to hear it
        EXPECT_EQ(sound.volume.VolumeMax() + sound.volume.VolumeLevel(), 0);
        EXPECT_FALSE(sound.mixer.Open());
        card.PlugIn();
        EXPECT_TRUE(Soon([&] { return sound.returns == time + 1; }));
        EXPECT_EQ(sound.volume.VolumeLevel(), 60);
    }
    sound.volume.ShowHardwareProblem();
    EXPECT_TRUE(sound.dialogs.shown.empty());
}

TEST(AlsaMixer, AHangingControlHoldsNobodyUpNorTheEnd) {
    const FakeCard card(AllLines);
    {
        Sound sound({.retryMs = 5, .patienceMs = 50});
        card.Hang(true);
        const auto before = std::chrono::steady_clock::now();
        for (int level = 1; level <= 50; ++level)
            sound.volume.VolumeLevel(level);
        EXPECT_EQ(sound.volume.VolumeLevel(), 50);
        EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(250));
        EXPECT_EQ(card.Volume("Master Playback"), 0);
        card.Hang(false);
        EXPECT_TRUE(Reaches(card, "Master Playback", 50));
        card.Hang(true);
        sound.volume.VolumeLevel(42);
    }
    card.Hang(false); // what was under way is still done, by the thread left behind
    EXPECT_TRUE(Reaches(card, "Master Playback", 42));
}

} // namespace vk::test
