#include "core/settings.h"
#include "core/settings_files.h"
#include "tests/support/core_fixture.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct SettingsTest : testing::Test, test::CoreFixture {
    const Settings& Load(const std::string& contents) {
        app.Write("settings.ini", contents);
        settings.LoadSettings();
        return settings.values;
    }
};

TEST_F(SettingsTest, ANewFileHasItsDefaultsAndLeadsToTheFirstRun) {
    ASSERT_TRUE(MakeSettingsFile(settings.SettingsFile(), "1.2.3"));
    const std::string text = app.Read("settings.ini");
    const Settings& s = Load(text);
    EXPECT_EQ(settings.Read("main", "version"), "1.2.3");
    EXPECT_EQ(settings.Read("main", "Setup"), "");
    EXPECT_EQ(s.MediaDir, "");
    EXPECT_EQ(s.CDDriveLetter, "NONE");
    EXPECT_TRUE(s.bTSModeEnabled && s.DoResume && s.numberedList && s.Use3Dmaps);
    EXPECT_EQ(s.AudioExtensions, "MP3:MP2:MP1:CDA:WAV:VOC:AU:SND:AIF:AIFF:FLAC:OGG");
    EXPECT_EQ(s.Time2, "9:00:00 PM");
    EXPECT_DOUBLE_EQ(s.maxfreq, 107.9);
    EXPECT_TRUE(
        text.starts_with("[main]\r\nVersion=1.2.3\r\nCurrentForm=velkorandum\r\nMediaDir=\r\n"));
    EXPECT_TRUE(text.ends_with("[PowerOptions]\r\nShutDownMode=0\r\n\r\n"));
    EXPECT_NE(text.find("TopNewCount=30\r\n\r\n[audio_player]\r\n"), std::string::npos);
}

TEST_F(SettingsTest, TheOtherGeneratedFilesReadBack) {
    ASSERT_TRUE(MakeKeyboardFile(app.File("kb.ini")));
    ASSERT_TRUE(MakeWinampFile(app.File("winamp.ini")));
    EXPECT_EQ(ini.ReadText(app.File("kb.ini"), "keyboard", "KBPAGEDOWN"), "34");
    EXPECT_EQ(ini.ReadText(app.File("winamp.ini"), "winamp", "titlefmt"),
              "[%artist% - ]$if2(%title%,$filepart(%filename%))");
    EXPECT_EQ(ini.ReadText(app.File("winamp.ini"), "out_ds", "cfg_total_time"),
              "19060000000000001F");
}

TEST_F(SettingsTest, CorrectsSingleValues) {
    const Settings& s =
        Load("[main]\nSearchesToSave=-1\nsafevol_value=0\nCurrentSkin=.skn\nCurrentNTSkin=\n"
             "[dlink_tuner]\nminfreq=0\nmaxfreq=200\nfrequencyincr=0.05\n");
    EXPECT_EQ(s.SearchesToSave, 5);
    EXPECT_EQ(s.safevol_value, 36);
    EXPECT_EQ(s.CurrentSkin, "Torque.skn");
    EXPECT_EQ(s.CurrentNTSkin, "Torque.skn");
    EXPECT_DOUBLE_EQ(s.minfreq, 87.7);
    EXPECT_DOUBLE_EQ(s.maxfreq, 107.9);
    EXPECT_DOUBLE_EQ(s.frequencyincr, 0.2);
    EXPECT_EQ(Load("[main]\nCurrentDTSkin=Other.skn\nCurrentSkin=Day.skn\n").CurrentSkin,
              "Day.skn");
    EXPECT_EQ(Load("[main]\nCurrentDTSkin=Other.skn\n").CurrentSkin, "Torque.skn")
        << "the day skin is read from its own key only";
    EXPECT_EQ(settings.SkinPicture("Torque.skn", "a.gif"), app.Path() + "/skins/Torque/a.gif");
}

TEST_F(SettingsTest, ACommaLocaleReadsPointsAndForeignFilesGiveDefaults) {
    state.DecimalSymbol = ",";
    EXPECT_DOUBLE_EQ(Load("[dlink_tuner]\nfrequencyincr=0.1\n").frequencyincr, 0.1);
    for (const char* contents : {"", "\x01\xFF[main", "[main]\nListSpacing"}) {
        EXPECT_EQ(Load(contents).CurrentSkin, "Torque.skn");
        EXPECT_EQ(settings.values.SearchesToSave, 5);
    }
}

} // namespace
} // namespace vk
