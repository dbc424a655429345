#include "playback/line_mute.h"
#include "tests/support/core_test.h"
#include "tests/support/fake_mixer.h"

namespace vk::test {

using testing::ElementsAre;

struct VolumeTest : CoreTest {
    FakeMixer mixer;
    FakeWaveInput input;
    cVolume::Needs needs{mixer, input, dialogs, report};
};

TEST_F(VolumeTest, TellsOnceOfAMissingCardAndUsesOneThatComesLater) {
    mixer.present = false;
    cVolume volume(needs);
    EXPECT_TRUE(Logged("No Sound Card Detected  : You Must install a sound card"));
    EXPECT_TRUE(dialogs.shown.empty());
    for (int i = 0; i < 2; ++i)
        volume.ShowHardwareProblem();
    volume.VolumeLevel(7);
    EXPECT_EQ(volume.VolumeMax(), 0);
    mixer.Change(true);
    EXPECT_EQ(volume.VolumeMax(), 1000);
    for (const int refused : {2, 3}) { // the meters' open
        mixer.opens = 0;
        mixer.refusedOpen = 2;
        cVolume another(needs);
        mixer.refusedOpen = refused; // the third open asks again
        another.ShowHardwareProblem();
    }
    EXPECT_THAT(dialogs.shown,
                ElementsAre("No sound card detected.  You must install a sound card.",
                            "Unable to open the requested device."));
    EXPECT_THAT(dialogs.titles,
                ElementsAre("Hardware Problem", "Velkorandum - Mixercontrol Failure"));
}

TEST_F(VolumeTest, ReportsAFailureUnderThePropertysName) {
    cVolume volume(needs);
    mixer.broken = true;
    EXPECT_EQ(volume.VolumeLevel() + volume.CurrentVolumeMeterOutput(), 0);
    volume.CompactDiscMute(true);
    for (const std::string name : {"VolumeLevel", "CurrentVolumeMeterOutput", "CompactDiscMute"})
        EXPECT_TRUE(Logged("An error occured in cVolume." + name + "   : wire cut"));
}

TEST_F(VolumeTest, MutesTheLineOfATunerAndPutsItsStateBack) {
    cVolume volume(needs);
    LineMute line(volume);
    const MixerLine inputs[] = {MixerLine::Line, MixerLine::CD, MixerLine::Mic};
    for (const int number : {1, 2, 3})
        for (const int before : {0, 1}) {
            std::int32_t& mute = mixer.Mute(inputs[number - 1]);
            mute = before;
            line.MuteLine(number);
            EXPECT_EQ(mute, 1);
            line.UnMuteLine(number);
            EXPECT_EQ(mute, 0);
            line.MuteLine(number);         // what was kept stays
            line.MuteLine(number % 3 + 1); // and is not another line's
            line.RestoreMuteState(number);
            EXPECT_EQ(mute, before) << number;
        }
    for (const int other : {0, 5, -1, 4}) {
        EXPECT_EQ(mixer.Mute(MixerLine::Master), 0) << "only the last is one";
        line.MuteLine(other);
        line.UnMuteLine(other);
        line.RestoreMuteState(other);
    }
    EXPECT_EQ(mixer.Mute(MixerLine::Master), 1);
}

} // namespace vk::test
