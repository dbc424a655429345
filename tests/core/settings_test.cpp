#include "core/settings.h"
#include "core/settings_files.h"
#include "tests/support/core_test.h"

namespace vk::test {
namespace {

using testing::EndsWith, testing::StartsWith;

struct SettingsTest : CoreTest {
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
    EXPECT_EQ(s.MediaDir + s.CDDriveLetter, "NONE");
    EXPECT_TRUE(s.bTSModeEnabled && s.DoResume && s.numberedList && s.Use3Dmaps);
    EXPECT_EQ(s.AudioExtensions, "MP3:MP2:MP1:CDA:WAV:VOC:AU:SND:AIF:AIFF:FLAC:OGG");
    EXPECT_EQ(s.Time2, "9:00:00 PM");
    EXPECT_DOUBLE_EQ(s.maxfreq, 107.9);
    EXPECT_THAT(text,
                StartsWith("[main]\r\nVersion=1.2.3\r\nCurrentForm=velkorandum\r\nMediaDir=\r\n"));
    EXPECT_THAT(text, EndsWith("[PowerOptions]\r\nShutDownMode=0\r\n\r\n"));
    for (const char* part : {"TopNewCount=30\r\n\r\n[audio_player]\r\n", "\r\nPlayListDir=\r\n",
                             "\r\ncurrenttrack=1\r\ncurrentplaylist=\r\nvolumeserial=-1\r\n"})
        EXPECT_THAT(text, testing::HasSubstr(part));
}

TEST_F(SettingsTest, SettingsAreReadAndWrittenByType) {
    app.Write("settings.ini", "[main]\nShowClock=True\n[dlink_tuner]\nmaxfreq=200\n");
    EXPECT_TRUE(settings.Get(setting::ShowClock));
    EXPECT_DOUBLE_EQ(settings.Get(setting::maxfreq), 107.9) << "corrected as in a load";
    EXPECT_EQ(settings.Get(setting::CurrentTrack), 0);
    EXPECT_EQ(settings.Text(setting::AudioVolume), "");
    EXPECT_EQ(settings.Write({{setting::CurrentTrack, 7},
                              {setting::CurrentPosition, 61.5},
                              {setting::ShowClock, false},
                              {setting::safevol_value, 40}}),
              1);
    EXPECT_EQ(app.Read("settings.ini"),
              "[main]\r\nShowClock=false\r\nsafevol_value=40\r\n[dlink_tuner]\r\nmaxfreq=200\r\n"
              "[audio_player]\r\nCurrentTrack=7\r\nCurrentPosition=61.5\r\n");
    EXPECT_EQ(settings.values.safevol_value, 40) << "in memory too";
    settings.Set(setting::CurrentPosition, 100000);
    EXPECT_EQ(settings.Get(setting::CurrentPosition), 100000) << "written without an exponent";
    settings.LoadSettings();
    EXPECT_FALSE(settings.values.ShowClock);
}

TEST_F(SettingsTest, WhatIsEmptyIsFilledAndWhatIsNotStays) {
    Load("[main]\nCurrentNTSkin=.skn\nTime1=7:00:00 AM\n");
    settings.FillEmptySettings();
    for (const auto& [row, value] :
         {std::pair<SettingRow, const char*>(setting::CurrentNTSkin, "Torque.skn"),
          {setting::Time1, "7:00:00 AM"},
          {setting::Time2, "9:00:00 PM"},
          {setting::AudioExtensions, "MP3:MP2:MP1:CDA:WAV:VOC:AU:SND:AIF:AIFF"},
          {setting::MediaDir, ""},
          {setting::CurrentSkin, ""}})
        EXPECT_EQ(settings.Text(row), value) << row.name;
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

TEST_F(SettingsTest, CorrectsSingleValuesReadsPointsInACommaLocaleAndDefaultsFromForeignFiles) {
    const Settings& s =
        Load("[main]\nSearchesToSave=-1\nsafevol_value=0\nCurrentSkin=.skn\nCurrentNTSkin=\n"
             "[dlink_tuner]\nminfreq=0\nmaxfreq=200\nfrequencyincr=0.05\n");
    EXPECT_EQ(std::tuple(s.SearchesToSave, s.safevol_value, s.minfreq, s.maxfreq, s.frequencyincr),
              std::tuple(5, 36, 87.7, 107.9, 0.2));
    EXPECT_EQ(s.CurrentSkin + s.CurrentNTSkin, "Torque.sknTorque.skn");
    EXPECT_EQ(Load("[main]\nCurrentDTSkin=Other.skn\nCurrentSkin=Day.skn\n").CurrentSkin,
              "Day.skn");
    EXPECT_EQ(Load("[main]\nCurrentDTSkin=Other.skn\n").CurrentSkin, "Torque.skn")
        << "the day skin is read from its own key only";
    state.DecimalSymbol = ",";
    EXPECT_DOUBLE_EQ(Load("[dlink_tuner]\nfrequencyincr=0.1\n").frequencyincr, 0.1);
    for (const char* contents : {"", "\x01\xFF[main", "[main]\nListSpacing"}) {
        EXPECT_EQ(Load(contents).CurrentSkin, "Torque.skn");
        EXPECT_EQ(settings.values.SearchesToSave, 5);
    }
}

} // namespace
} // namespace vk::test
