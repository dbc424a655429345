#include "tests/startup/start_fixture.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

using testing::Contains, testing::ElementsAre;

struct StartupTest : testing::Test, StartFixture {
    /// Starts with one key of a set-up directory changed.
    StartOutcome StartWith(const std::string& key, const std::string& value) {
        SetUpApp();
        settings.Write("main", key, value);
        return Make()->Form_Load();
    }
    void ExpectEnds(const std::string& message) {
        dialogs.shown = {""};
        EXPECT_EQ(Make()->Form_Load(), StartOutcome::Ended) << message;
        EXPECT_EQ(dialogs.shown.at(dialogs.shown.size() > 1), message);
    }
};

TEST_F(StartupTest, ANewDirectoryGetsItsFilesAndTheFirstRun) {
    player.running = false;
    EXPECT_EQ(Make()->Form_Load(), StartOutcome::FirstRun);
    for (const char* name : {"settings.ini", "kb.ini", "winamp.ini", "debug.log"})
        EXPECT_TRUE(FileExists(app.File(name))) << name;
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(Told("settings.ReShow"));
    EXPECT_EQ(settings.Read("Temp", "PWR"), "0");
    for (const auto& [key, value] : {std::pair("repeat", "1"), {"mw_open", "0"}})
        EXPECT_EQ(ini.ReadText(app.File("winamp.ini"), "winamp", key), value);
    EXPECT_EQ(player.started.size(), 1u);
    EXPECT_EQ(state.DecimalSymbol, ".");
}

TEST_F(StartupTest, ASetUpDirectoryLeadsToTheMenuInOrder) {
    SetUpApp();
    const auto start = Make();
    EXPECT_EQ(start->Form_Load(), StartOutcome::Running);
    EXPECT_THAT(told,
                ElementsAre("loading.Load", "loading.Init 0 13", "server " + app.File("DB_UPDATE"),
                            "load velkorandum", "load playmp3", "loading.Max", "loading.Clear",
                            "velkorandum.ReShow"));
    EXPECT_EQ(start->BootStepCount, 11) << "the bar stops short when the player is there already";
    told.clear();
    start->ReloadScreens();
    EXPECT_THAT(told, ElementsAre("unload screens", "load playmp3", "load velkorandum",
                                  "loading.Max", "velkorandum.ReShow"));
    EXPECT_EQ(state.CurrentSkinFile, "Torque.skn");
    EXPECT_EQ(settings.Read("main", "ListSpacing"), "3") << "empty keys are filled";
    EXPECT_EQ(extensions.AudioExtensionList.front(), "MP3");
    EXPECT_EQ(player.sent.at(0), RecordingPlayer::Command(40001))
        << "an old player is closed before its settings are touched";
}

TEST_F(StartupTest, EachUnusableSettingHasItsWordsAndEndsTheStart) {
    const char* cases[][3] = {
        {"version", "0",
         "To avoid this issue, you should run RESET.bat from the Velkorandum directory, then "
         "re-launch."},
        {"MediaDir", "/no/such",
         "Your media folder appears to be missing.\nPlease recreate your media folder."},
        {"PlaylistDir", "/no/such",
         "Your playlists folder appears to be missing.  &vbcrlf & Please recreate the "
         "folder."},
        {"PlaylistDir", "/", "You must use a playlists directory WITHIN your Media Directory."},
        {"CurrentSkin", "Gone.skn", "Missing .skn file.  Default skin will be used."},
        {"Time1", "dawn",
         "Your time must be formatted to this format 'HH:MM:SS AM' in order for this "
         "application to function.\nChange your clock settings, then run Reset.bat"}};
    for (const auto& [key, value, message] : cases) {
        dialogs.answers = {false};
        EXPECT_EQ(StartWith(key, value), StartOutcome::Ended) << key;
        EXPECT_THAT(dialogs.shown, Contains(message));
    }
    EXPECT_EQ(settings.Read("main", "CurrentNTSkin"), "Torque.skn");
    dialogs.answers.clear();
    EXPECT_EQ(StartWith("version", "0.0.1"), StartOutcome::Running);
    EXPECT_EQ(settings.Read("main", "version"), Version) << "taken over";
    EXPECT_THAT(dialogs.shown, Contains("If you have trouble, you should run RESET.bat from the "
                                        "Velkorandum directory, then re-launch."));
}

TEST_F(StartupTest, ASecondInstanceAndAMissingSkinFolderEndBeforeAnyFileIsMade) {
    instance.running = true;
    ExpectEnds("Velkorandum is already running, or has not finished closing out from a previous "
               "instance.");
    EXPECT_EQ(instance.claimed, app.Path());
    instance.running = false;
    std::filesystem::remove_all(app.File("skins"));
    ExpectEnds("Cannot find skin directory\n" + app.File("skins") + " does not exist");
    EXPECT_FALSE(FileExists(settings.SettingsFile()));
}

TEST_F(StartupTest, RevertDeletesTheGeneratedFilesOnly) {
    SetUpApp();
    const std::string song = app.Write("media/song.mp3", "x");
    app.Write("keys.ini", "");
    settings.Write("main", "MediaDir", "/no/such");
    dialogs.answers = {true};
    const auto start = Make();
    EXPECT_EQ(start->Form_Load(), StartOutcome::Ended);
    start->Form_Unload();
    EXPECT_THAT(dialogs.noMarked, ElementsAre("Revert?"));
    EXPECT_EQ(dialogs.shown.back(), "Velkorandum will now exit.");
    for (const char* name : {"settings.ini", "kb.ini", "keys.ini", "debug.log"})
        EXPECT_FALSE(FileExists(app.File(name))) << name;
    EXPECT_TRUE(FileExists(song));
}

TEST_F(StartupTest, AnUnregisteredServerIsRegisteredAndOneThatIsGoneReported) {
    SetUpApp();
    DeleteFileAt(app.File("registry.ini"));
    ExpectEnds("DB_UPDATE.exe registered!  Restart the application");
    EXPECT_EQ(programs.started.at(0).program, app.File("DB_UPDATE"));
    programs.canStart = false;
    ExpectEnds("An activeX EXE is not correctly registered.");
    EXPECT_EQ(settings.Read("Temp", "PWR"), "") << "stopped at once";
    programs.canStart = true;
    DeleteFileAt(app.File("DB_UPDATE"));
    registry.SetStringValue(Hive::ClassesRoot, "DB_UPDATE.clsDB", "", app.File("DB_UPDATE"));
    EXPECT_EQ(Make()->Form_Load(), StartOutcome::Ended);
    EXPECT_THAT(dialogs.shown, Contains("Could not reference DB_UPDATE.exe"));
    EXPECT_TRUE(Logged("Not Registered :  Error number 0"));
}

TEST_F(StartupTest, WhereNothingCanBeWrittenItSaysSoAndRunsFromMemory) {
    for (const char* name : {"settings.ini", "kb.ini", "winamp.ini"})
        app.MakeFolder(std::string(name) + ".new"); // the temporary name is taken
    registry = FileRegistry(app.File("none/registry.ini"));
    EXPECT_EQ(Make()->Form_Load(), StartOutcome::FirstRun);
    EXPECT_THAT(dialogs.shown,
                ElementsAre("Velkorandum cannot write to its directory\n" + app.Path() +
                            "\nSettings and positions are lost when it ends."));
    EXPECT_EQ(settings.Read("main", "version"), Version);
    EXPECT_EQ(settings.Read("Temp", "PWR"), "0");
    EXPECT_EQ(ini.ReadText(app.File("kb.ini"), "keyboard", "ok"), "13");
    EXPECT_TRUE(Told("server " + app.File("DB_UPDATE"))) << "without being registered";
    EXPECT_FALSE(FileExists(settings.SettingsFile()));
}

TEST_F(StartupTest, OpticalDrives) {
    const Drive sr0{"/dev/sr0", DriveType::CdRom}, sr1{"/dev/sr1", DriveType::CdRom};
    const std::tuple<const char*, std::vector<Drive>, const char*> cases[] = {
        {"/dev/sr1", {}, "NONE"},
        {"/dev/sr1", {sr0, sr1}, "/dev/sr1"},
        {"/dev/sr9", {{"/stick", DriveType::Removable}, sr0}, "/dev/sr0"},
        {"NONE", {sr0}, "/dev/sr0"}};
    for (const auto& [stored, drives, chosen] : cases) {
        state = AppState();
        volumes.drives = drives;
        EXPECT_EQ(StartWith("CDDriveLetter", stored), StartOutcome::Running);
        EXPECT_EQ(settings.values.CDDriveLetter, chosen);
        EXPECT_EQ(settings.Read("main", "CDDriveLetter"), drives.empty() ? stored : chosen);
    }
}

TEST_F(StartupTest, Resolutions) {
    const auto start = Make();
    const std::tuple<int, int, int> sizes[] = {{-7, 800, 480}, {0, 800, 480},  {1, 640, 480},
                                               {2, 720, 400},  {3, 800, 400},  {4, 800, 600},
                                               {5, 1024, 768}, {9, 1024, 768}, {6, 800, 480}};
    for (const auto& [size, width, height] : sizes) { // -7 and 9 set nothing; 6 is empty
        settings.Write("main", "AppSize", std::to_string(size));
        start->GetResolutions();
        EXPECT_EQ(state.ScreenWidth, width) << size;
        EXPECT_EQ(state.ScreenHeightTwips, height * 15) << size;
    }
}

TEST_F(StartupTest, TheDaySkinIsChosenStrictly) {
    app.Write("skins/Night.skn", "[Colors]\n");
    for (const auto& [hour, minute, day] :
         {std::tuple(8, 0, false), {8, 1, true}, {20, 59, true}, {21, 0, false}, {3, 0, false}}) {
        clock.SetNow({2026, 11, 21, hour, minute, 0, 0, 6});
        StartWith("CurrentNTSkin", "Night.skn");
        EXPECT_EQ(state.CurrentSkinFile, day ? "Torque.skn" : "Night.skn") << hour << ":" << minute;
    }
}

TEST_F(StartupTest, TheWayOutTellsTheModules) {
    SetUpApp();
    settings.Write("remote", "status", "true");
    const auto start = Make();
    EXPECT_EQ(start->Form_Load(), StartOutcome::Running);
    EXPECT_TRUE(Logged("Error Starting the Remote")) << "but it never stops the start";
    start->Form_QueryUnload(true);
    EXPECT_TRUE(Told("session ends"));
    start->Form_Unload();
    EXPECT_EQ(settings.Read("remote", "learn"), "171");
    EXPECT_TRUE(Told("release"));
}

} // namespace
} // namespace vk::test
