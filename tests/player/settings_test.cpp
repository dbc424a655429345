#include "platform/linux/sound_device.h"
#include "player/engine/player_settings.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace vk::test {
namespace {

TEST(PlayerSettings, TakesItsKeysInAnySpellingAndDefaultsForNonsense) {
    TempFolder folder;
    PlayerSettings settings = ReadPlayerSettings(
        folder.Write("winamp.ini", "[Winamp]\r\nShuffle = -1\r\nrepeat=1\r\npladv = 0\r\n"
                                   "Volume = 200\r\nuse_eq = 1\r\npreamp = 20\r\n"
                                   "eq_data=4,31,x,99,63\r\n"));
    EXPECT_TRUE(settings.shuffle && settings.repeat && !settings.advance);
    EXPECT_EQ(settings.volume, 200);
    EXPECT_TRUE(settings.equaliser.on);
    EXPECT_EQ(settings.equaliser.preamp, 20);
    EXPECT_EQ(settings.equaliser.bands,
              (std::array<int, 10>{4, 31, 31, 31, 63, 31, 31, 31, 31, 31}));
    folder.Write("bad.ini", "[winamp]\nshuffle=on\nVolume=-3\npladv=yes\npreamp=64\n");
    for (const char* file : {"bad.ini", "none.ini"}) {
        settings = ReadPlayerSettings(folder.File(file));
        EXPECT_TRUE(!settings.shuffle && settings.advance);
        EXPECT_EQ(settings.volume, 255);
        EXPECT_EQ(settings.equaliser.preamp, 31);
    }
}

TEST(EqualiserGain, IsFlatInTheMiddleAndTwentyDecibelsAtTheEnds) {
    const std::pair<int, float> gains[] = {{0, 20}, {31, 0}, {32, 0}, {63, -20}};
    for (const auto& [value, decibels] : gains)
        EXPECT_FLOAT_EQ(EqualiserGain(value), decibels) << value;
    EXPECT_GT(EqualiserGain(10), EqualiserGain(11));
}

TEST(SoundDevice, IsACardOrAServerOrAConfiguredOne) {
    TempFolder folder;
    SoundPlaces places{folder.File("cards"), folder.Path(), "", ""};
    EXPECT_EQ(FindSoundDevice(places), SoundDevice::None);
    folder.Write("cards", "--- no soundcards ---\n");
    EXPECT_EQ(FindSoundDevice(places), SoundDevice::None);
    folder.Write("cards", " 0 [PCH            ]: HDA-Intel - HDA Intel PCH\n");
    EXPECT_EQ(FindSoundDevice(places), SoundDevice::Card);
    places.cards.clear();
    EXPECT_EQ(FindSoundDevice(places), SoundDevice::None);
    folder.Write("pulse/native", "");
    EXPECT_EQ(FindSoundDevice(places), SoundDevice::Server);
    EXPECT_EQ(FindSoundDevice({"", "", "tcp:host", ""}), SoundDevice::Server);
    EXPECT_EQ(FindSoundDevice({"", "", "", "/etc/my.conf"}), SoundDevice::Card);
}

} // namespace
} // namespace vk::test
