#include "playback/line_mute.h"
#include "tests/support/core_fixture.h"
#include "tests/support/fake_mixer.h"

#include <gmock/gmock.h>

#include <vector>

namespace vk::test {

using testing::ElementsAre;

struct VolumeTest : testing::Test, CoreFixture {
    FakeMixer mixer;
    FakeWaveInput input;
    cVolume::Needs Needs() { return {mixer, input, dialogs, report}; }
};

struct LineNames {
    MixerLine line;
    std::int32_t (cVolume::*minimum)();
    std::int32_t (cVolume::*maximum)();
    std::int32_t (cVolume::*level)();
    void (cVolume::*setLevel)(std::int32_t);
    bool (cVolume::*mute)();
    void (cVolume::*setMute)(bool);
};

#define LINE_NAMES(line, level, mute)                                                              \
    {                                                                                              \
        MixerLine::line, &cVolume::level##Min, &cVolume::level##Max, &cVolume::level##Level,       \
            &cVolume::level##Level, &cVolume::mute##Mute, &cVolume::mute##Mute                     \
    }
// In the order in which the controls are looked up.
const LineNames Names[] = {LINE_NAMES(Master, Volume, Volume),  LINE_NAMES(Mic, Mic, Mikrofon),
                           LINE_NAMES(Line, Line, Line),        LINE_NAMES(CD, CD, CompactDisc),
                           LINE_NAMES(Synth, Syn, Synthesizer), LINE_NAMES(Wave, Wave, Wave)};

TEST_F(VolumeTest, LooksUpTwelveControlsAndReachesEachLineByItsNames) {
    mixer.missing = {MixerLine::Mic};
    cVolume volume(Needs());
    EXPECT_EQ(mixer.opens, 2);
    std::vector<std::pair<MixerLine, MixerControlType>> order;
    for (const MixerControlType type : {MixerControlType::Volume, MixerControlType::Mute})
        for (const LineNames& names : Names)
            order.emplace_back(names.line, type);
    EXPECT_EQ(mixer.asked, order);
    for (const LineNames& names : Names) {
        const bool there = names.line != MixerLine::Mic;
        SCOPED_TRACE(static_cast<int>(names.line));
        const auto level = static_cast<std::int32_t>(names.line) % 100 + 1;
        (volume.*names.setLevel)(level);
        (volume.*names.setMute)(true);
        EXPECT_EQ((volume.*names.level)(), there ? level : 0);
        EXPECT_EQ((volume.*names.mute)(), there);
        EXPECT_EQ(mixer.Level(names.line), there ? level : 0);
        EXPECT_EQ((volume.*names.minimum)(), 0);
        EXPECT_EQ((volume.*names.maximum)(), there ? 1000 : 0);
    }
    volume.ShowHardwareProblem();
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(VolumeTest, TellsOnceOfAMissingCardAndUsesOneThatComesLater) {
    mixer.present = false;
    cVolume volume(Needs());
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
        cVolume another(Needs());
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
    cVolume volume(Needs());
    mixer.broken = true;
    EXPECT_EQ(volume.VolumeLevel() + volume.CurrentVolumeMeterOutput(), 0);
    volume.CompactDiscMute(true);
    for (const std::string name : {"VolumeLevel", "CurrentVolumeMeterOutput", "CompactDiscMute"})
        EXPECT_TRUE(Logged("An error occured in cVolume." + name + "   : wire cut"));
}

TEST_F(VolumeTest, MetersShowThePeakOfTheLatestBuffer) {
    {
        cVolume volume(Needs());
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(volume.CurrentVolumeMeterInput(), 0);
        EXPECT_EQ(input.starts, 1);
        const std::int16_t loud[] = {3, -32768, 5}, quiet[] = {3, -9};
        input.onBuffer(loud);
        EXPECT_EQ(volume.CurrentVolumeMeterInput(), volume.MaxVolumeMeterInput());
        input.onBuffer(quiet);
        EXPECT_EQ(volume.CurrentVolumeMeterInput(), 9);
        EXPECT_EQ(volume.MaxVolumeMeterOutput(), 1000);
    }
    EXPECT_FALSE(input.Running());
}

TEST_F(VolumeTest, MutesTheLineOfATunerAndPutsItsStateBack) {
    cVolume volume(Needs());
    LineMute line(volume);
    const std::pair<std::int32_t, MixerLine> inputs[] = {
        {1, MixerLine::Line}, {2, MixerLine::CD}, {3, MixerLine::Mic}};
    for (const auto& [number, at] : inputs)
        for (const int before : {0, 1}) {
            mixer.Mute(at) = before;
            line.MuteLine(number, true);
            EXPECT_EQ(mixer.Mute(at), 1);
            line.UnMuteLine(number);
            EXPECT_EQ(mixer.Mute(at), 0);
            line.MuteLine(number, false); // what was kept stays
            line.RestoreMuteState(number);
            EXPECT_EQ(mixer.Mute(at), before) << number;
        }
    line.MuteLine(4, true);
    line.UnMuteLine(4);
    line.RestoreMuteState(4);
    EXPECT_EQ(mixer.Mute(MixerLine::Master), 1);
    for (const int none : {0, 5, -1})
        line.MuteLine(none, true);
    EXPECT_EQ(mixer.Mute(MixerLine::Wave) + mixer.Mute(MixerLine::Synth), 0);
}

} // namespace vk::test
