#include "tests/core/start_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vk {
namespace {

struct StartupTest : testing::Test, test::StartFixture {};

TEST_F(StartupTest, ANewDirectoryGetsItsFilesAndTheFirstRun) {
    player.running = false;
    const auto start = Make();
    EXPECT_EQ(start->Form_Load(), StartOutcome::FirstRun);
    for (const char* name : {"settings.ini", "kb.ini", "winamp.ini", "debug.log"})
        EXPECT_TRUE(FileExists(app.File(name))) << name;
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_TRUE(Told("settings.ReShow"));
    EXPECT_EQ(settings.Read("Temp", "PWR"), "0");
    EXPECT_EQ(ini.ReadText(app.File("winamp.ini"), "winamp", "repeat"), "1");
    EXPECT_EQ(ini.ReadText(app.File("winamp.ini"), "winamp", "mw_open"), "0");
    EXPECT_EQ(player.started.size(), 1u);
    EXPECT_EQ(state.DecimalSymbol, ".");
}

TEST_F(StartupTest, ASetUpDirectoryLeadsToTheMenuInOrder) {
    SetUpApp();
    const auto start = Make();
    EXPECT_EQ(start->Form_Load(), StartOutcome::Running);
    const std::vector<std::string> expected = {
        "loading.Load", "loading.Init 0 13", "load velkorandum", "load playlists",
        "load playmp3", "loading.Max",       "loading.Clear",    "velkorandum.ReShow"};
    EXPECT_EQ(told, expected);
    EXPECT_EQ(start->BootStepCount, 12) << "the bar stops short when the player is there already";
    EXPECT_EQ(state.CurrentSkinFile, "Torque.skn");
    EXPECT_EQ(settings.Read("main", "ListSpacing"), "3") << "empty keys are filled";
    EXPECT_EQ(settings.Read("audio_player", "AudioExtensions"),
              "MP3:MP2:MP1:CDA:WAV:VOC:AU:SND:AIF:AIFF");
    EXPECT_EQ(state.AudioExtensionList.front(), "MP3");
    ASSERT_FALSE(player.sent.empty());
    EXPECT_EQ(player.sent.front(), test::RecordingPlayer::Command(40001))
        << "an old player is closed before its settings are touched";
}

TEST_F(StartupTest, EachFailureHasItsWordsAndEndsTheStart) {
    struct Case {
        const char* what;
        std::function<void()> prepare;
        std::string message;
    };
    const Case cases[] = {
        {"second instance", [&] { processes.running = true; },
         "Velkorandum is already running, or has not finished closing out from a previous "
         "instance."},
        {"version kept",
         [&] {
             app.Write("settings.ini", "[main]\nversion=0\n");
             dialogs.answers = {false};
         },
         "To avoid this issue, you should run RESET.bat from the Velkorandum directory, then "
         "re-launch."},
        {"media folder gone",
         [&] {
             SetUpApp();
             settings.Write("main", "MediaDir", "/no/such");
             dialogs.answers = {false};
         },
         "Your media folder appears to be missing.\nPlease recreate your media folder."},
        {"playlist folder gone",
         [&] {
             SetUpApp();
             settings.Write("main", "PlaylistDir", "/no/such");
         },
         "Your playlists folder appears to be missing.  &vbcrlf & Please recreate the folder."},
        {"playlists elsewhere",
         [&] {
             SetUpApp();
             settings.Write("main", "PlaylistDir", "/");
         },
         "You must use a playlists directory WITHIN your Media Directory."},
        {"skin gone",
         [&] {
             SetUpApp();
             settings.Write("main", "CurrentSkin", "Gone.skn");
         },
         "Missing .skn file.  Default skin will be used."},
        {"time unreadable",
         [&] {
             SetUpApp();
             settings.Write("main", "Time1", "dawn");
         },
         "Your time must be formatted to this format 'HH:MM:SS AM' in order for this application "
         "to "
         "function.\nChange your clock settings, then run Reset.bat"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        dialogs.shown.clear();
        dialogs.answers.clear();
        processes.running = false;
        c.prepare();
        EXPECT_EQ(Make()->Form_Load(), StartOutcome::Ended);
        EXPECT_NE(std::find(dialogs.shown.begin(), dialogs.shown.end(), c.message),
                  dialogs.shown.end());
    }
    EXPECT_EQ(settings.Read("main", "CurrentNTSkin"), "Torque.skn");
}

TEST_F(StartupTest, AMissingSkinFolderEndsBeforeAnyFileIsMade) {
    std::filesystem::remove_all(app.File("skins"));
    EXPECT_EQ(Make()->Form_Load(), StartOutcome::Ended);
    EXPECT_EQ(dialogs.shown.at(0),
              "Cannot find skin directory\n" + app.File("skins") + " does not exist");
    EXPECT_FALSE(FileExists(settings.SettingsFile()));
    EXPECT_EQ(ended, 1);
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
    EXPECT_EQ(dialogs.shown.back(), "Velkorandum will now exit.");
    for (const char* name : {"settings.ini", "kb.ini", "keys.ini", "debug.log"})
        EXPECT_FALSE(FileExists(app.File(name))) << name;
    EXPECT_TRUE(FileExists(song));
}

TEST_F(StartupTest, AnotherVersionIsTakenOverOnRequest) {
    SetUpApp();
    settings.Write("main", "version", "0.0.1");
    EXPECT_EQ(Make()->Form_Load(), StartOutcome::Running);
    EXPECT_EQ(settings.Read("main", "version"), Version);
    EXPECT_EQ(dialogs.shown.at(1),
              "If you have trouble, you should run RESET.bat from the Velkorandum "
              "directory, then re-launch.");
}

TEST_F(StartupTest, AnUnregisteredServerRegistersAndStops) {
    SetUpApp();
    DeleteFileAt(app.File("registry.ini"));
    EXPECT_EQ(Make()->Form_Load(), StartOutcome::Ended);
    EXPECT_EQ(dialogs.shown.at(0), "DB_UPDATE.exe registered!  Restart the application");
    EXPECT_EQ(player.ran.at(0), app.File("DB_UPDATE") + " ");
    EXPECT_EQ(settings.Read("Temp", "PWR"), "") << "stopped at once";
}

TEST_F(StartupTest, AServerThatIsGoneIsReported) {
    SetUpApp();
    DeleteFileAt(app.File("DB_UPDATE"));
    EXPECT_EQ(Make()->Form_Load(), StartOutcome::Ended);
    EXPECT_EQ(dialogs.shown.at(0), "Could not reference DB_UPDATE.exe");
    EXPECT_TRUE(Logged("Not Registered :  Error number 0"));
}

TEST_F(StartupTest, OpticalDrives) {
    struct Case {
        const char* stored;
        std::vector<Drive> drives;
        const char* chosen;
        const char* written;
    };
    const Case cases[] = {
        {"/dev/sr1", {}, "NONE", "/dev/sr1"},
        {"/dev/sr1",
         {{"/dev/sr0", DriveType::CdRom}, {"/dev/sr1", DriveType::CdRom}},
         "/dev/sr1",
         "/dev/sr1"},
        {"/dev/sr9",
         {{"/stick", DriveType::Removable}, {"/dev/sr0", DriveType::CdRom}},
         "/dev/sr0",
         "/dev/sr0"},
        {"NONE", {{"/dev/sr0", DriveType::CdRom}}, "/dev/sr0", "/dev/sr0"},
    };
    for (const Case& c : cases) {
        SetUpApp();
        state = AppState();
        settings.Write("main", "CDDriveLetter", c.stored);
        volumes.drives = c.drives;
        EXPECT_EQ(Make()->Form_Load(), StartOutcome::Running);
        EXPECT_EQ(settings.values.CDDriveLetter, c.chosen);
        EXPECT_EQ(settings.Read("main", "CDDriveLetter"), c.written);
    }
}

TEST_F(StartupTest, Resolutions) {
    SetUpApp();
    const auto start = Make();
    struct Case {
        const char* size;
        int width, height;
    };
    for (const Case& c :
         {Case{"0", 800, 480}, Case{"1", 640, 480}, Case{"2", 720, 400}, Case{"3", 800, 400},
          Case{"4", 800, 600}, Case{"5", 1024, 768}, Case{"9", 1024, 768}, Case{"6", 0, 0}}) {
        settings.Write("main", "AppSize", c.size);
        start->GetResolutions();
        EXPECT_EQ(state.ScreenWidth, c.width) << c.size;
        EXPECT_EQ(state.ScreenHeightTwips, c.height * 15) << c.size;
    }
}

TEST_F(StartupTest, TheDaySkinIsChosenStrictly) {
    struct Case {
        int hour, minute;
        const char* skin;
    };
    app.Write("skins/Night.skn", "[Colors]\n");
    for (const Case& c :
         {Case{8, 0, "Night.skn"}, Case{8, 1, "Torque.skn"}, Case{20, 59, "Torque.skn"},
          Case{21, 0, "Night.skn"}, Case{3, 0, "Night.skn"}}) {
        SetUpApp();
        settings.Write("main", "CurrentNTSkin", "Night.skn");
        clock.SetNow({2026, 11, 21, c.hour, c.minute, 0, 0, 6});
        Make()->Form_Load();
        EXPECT_EQ(state.CurrentSkinFile, c.skin) << c.hour << ":" << c.minute;
    }
}

TEST_F(StartupTest, AFailingRemoteNeverStopsTheStart) {
    SetUpApp();
    settings.Write("remote", "status", "true");
    EXPECT_EQ(Make()->Form_Load(), StartOutcome::Running);
    EXPECT_TRUE(Logged("Error Starting the Remote"));
}

TEST_F(StartupTest, ALostPlayerIsBroughtBackAndTheMenuIsInFront) {
    SetUpApp();
    const auto start = Make();
    start->Form_Load();
    state.WinampWatched = true;
    ScreenNamed("playlists").leadsTo = "playmp3";
    ScreenNamed("playmp3").leadsTo = "velkorandum";
    screens.CurrentForm = "playlists";
    player.running = false;
    clock.Advance(400);
    EXPECT_TRUE(Logged("Winamp was restarted"));
    EXPECT_EQ(screens.CurrentForm, "velkorandum");
    EXPECT_EQ(player.started.size(), 1u);
    clock.Advance(4000);
    EXPECT_EQ(player.started.size(), 1u);
}

TEST_F(StartupTest, ASystemShutdownSavesTheScreenInFront) {
    SetUpApp();
    const auto start = Make();
    start->Form_Load();
    screens.CurrentForm = "playmp3";
    start->Form_QueryUnload(true);
    EXPECT_TRUE(Told("playmp3.doquit"));
    EXPECT_TRUE(Logged("shutdown initiated by administrative request - os shutdown"));
    start->Form_QueryUnload(false);
    EXPECT_TRUE(Logged("Velkorandum terminated cleanly by user"));
    start->Form_Unload();
    EXPECT_EQ(settings.Read("remote", "learn"), "0");
}

} // namespace
} // namespace vk
