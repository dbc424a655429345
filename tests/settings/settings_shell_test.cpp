#include "library/catalogue/schema.h"
#include "tests/settings/shell_fixture.h"
#include "tests/sim/uuirtdrv/uuirt_sim.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct ToldSettingsView : SettingsView {
    void ShowShell() override {}
    void EnableLeaving(bool exitApp, bool done) override { leaving = exitApp && done; }
    void ShowTexts() override {}
    bool leaving = true;
};

struct SettingsShellTest : testing::Test, test::ShellFixture {
    SettingsShellTest() {
        // The start makes the settings screen; here it is the shell under test.
        loadSettings = [this] {
            shell = std::make_unique<SettingsShell>(ShellNeeds(), view);
            shell->FirstRunDue = true;
            MakeScreen("settings");
        };
    }
    void FirstRun() {
        start->Form_Load();
        shell->ReShow();
    }
    void LaterRun() {
        SetUpApp();
        start->Form_Load();
        loadSettings();
        shell->FirstRunDue = false;
    }
    ToldSettingsView view;
    std::unique_ptr<SettingsShell> shell;
};

TEST_F(SettingsShellTest, TheFirstRunLeadsFromTheWelcomeToTheMenu) {
    const std::string media = app.MakeFolder("music");
    const std::string lists = app.MakeFolder("music/lists");
    app.Write("vk_audio.m3u", "old");
    app.Write("music/a/song.MP3", "");
    dialogs.folders = {app.File("none"), media + "/", lists};
    dialogs.answers = {false}; // the offered folder for playlists
    lirc = true;
    FirstRun();
    EXPECT_EQ(dialogs.captions.at(0), "Select your Media directory");
    ASSERT_EQ(dialogs.shown.size(), 5u);
    EXPECT_TRUE(dialogs.shown[0].starts_with("Welcome to Velkorandum."));
    EXPECT_EQ(dialogs.shown[1],
              app.File("none") + "\ncannot be read. Please choose another folder.");
    EXPECT_EQ(dialogs.shown[4],
              "You can click on the clockbar at the bottom\nto return to the settings screen.");
    EXPECT_EQ(settings.values.MediaDir, media);
    EXPECT_EQ(settings.values.PlaylistDir, lists);
    EXPECT_EQ(remoteKeys[Action::ok] + settings.Text(setting::remoteType), "KEY_OKLIRC");
    EXPECT_EQ(settings.Read("Sync", "dest"), media);
    EXPECT_EQ(settings.Read("video_player", "Volume"), "0");
    EXPECT_EQ(settings.Read("main", "ExtendedTags") + " " +
                  settings.Read("video_player", "VideoExtensions"),
              "true MPG:AVI:MPEG:DIVX:MKV:MP4:M4V:MOV:WMV:WEBM:TS:VOB:ISO");
    EXPECT_TRUE(settings.Read("main", "Setup", IniType::Boolean).Bool());
    EXPECT_FALSE(FileExists(app.File("vk_audio.m3u")));
    EXPECT_EQ(screens.CurrentForm, "velkorandum");
    EXPECT_TRUE(Told("velkorandum.ReShow"));
    EXPECT_EQ(exits, 0);
}

TEST_F(SettingsShellTest, ASerialReceiverIsFoundBehindTheWelcomeAndItsButtonsAreLearnt) {
    ports[0] = {"Serial port ttyS0", SerialPortName(1)};
    ports[3] = {"Adapter", "/dev/serial/by-id/adapter"};
    bool pressed = false;
    const auto burst = [this](int pause) {
        port->Receive("\x12\x34");
        clock.Advance(pause);
    };
    const auto hold = [this](const char* code) { heard(code, false), heard(code, true); };
    dialogs.onShown = [&] {
        const std::string text = dialogs.shown.back();
        const bool listens = text.starts_with("Welcome");
        if (listens) clock.Advance(1600);
        if (listens && pressed) burst(800), burst(300), burst(300); // pressed shortly, and held
        if (dialogs.titles.back() != "Remote" || !pressed) return;
        if (text.ends_with("\n\nOK")) return hold("11");
        heard("11", true);  // which is held still
        heard("99", false); // of no button
        hold(text.find("DOWN") == std::string::npos ? "11" : "22");
    };
    struct Case {
        const char* answer;
        bool pressed;
        const char* receiver;
        int questions;
    };
    for (const Case& c : {Case{"what?", false, "false IRMAN 1", 0},
                          {"OK", false, "false IRMAN 1", 1},
                          {"", true, "true CREATIVE /dev/serial/by-id/adapter", 6}}) {
        answer = c.answer;
        pressed = c.pressed;
        dialogs.titles.clear();
        dialogs.answers = {false}; // no folder either: that ends it
        FirstRun();
        EXPECT_EQ(settings.Read("remote", "status") + " " + settings.Text(setting::remoteType) +
                      " " + settings.Text(setting::comport),
                  c.receiver);
        EXPECT_EQ(std::ranges::count(dialogs.titles, "Remote"), c.questions);
    }
    EXPECT_EQ(remoteKeys[Action::ok] + " " + remoteKeys[Action::down] + remoteKeys[Action::up],
              "11 22");
    EXPECT_FALSE(heard);
}

TEST_F(SettingsShellTest, AUsbUirtIsAskedForBeforeThePortsAreOpenedAndOfferedOnce) {
    std::string reason;
    const auto library = LoadFirstLibrary({VK_UUIRT_SIM}, reason);
    test::UuirtSim& device = *library->Get<test::UuirtSim* (*)()>("SimState")();
    device = {.openError = 1};
    uuirt = VK_UUIRT_SIM;
    ports[0] = {"Receiver", SerialPortName(1)};
    bool learns = false;
    dialogs.onShown = [&] {
        if (dialogs.shown.back().starts_with("Welcome")) {
            EXPECT_EQ(port, nullptr) << "the driver has it";
            for (int look = 0; look < 30; ++look) {
                clock.Advance(RemoteSearch::LookMs);
                EXPECT_NE(port, nullptr) << look;
                if (look == 2) device.openError = 0; // it is plugged in
            }
        }
        const auto button = std::to_string(std::ranges::count(dialogs.titles, "Remote"));
        if (learns && dialogs.titles.back() == "Remote") heard(button, false), heard(button, true);
    };
    for (const auto& [all, questions] : {std::pair(false, 1), {true, 6}}) {
        port = nullptr;
        learns = all;
        dialogs.titles.clear();
        dialogs.answers = {false}; // no folder: that ends it
        FirstRun();
        EXPECT_EQ(std::ranges::count(dialogs.titles, "Remote"), questions);
        EXPECT_EQ(settings.Text(setting::remoteType), all ? "USBUIRT" : "IRMAN");
        EXPECT_EQ(settings.Text(setting::comport), "1");
        device.openError = 1;
    }
    EXPECT_EQ(remoteKeys[Action::ok] + remoteKeys[Action::down], "12");
    EXPECT_EQ(device.open, 0) << "it is the receiver's now";
}

TEST_F(SettingsShellTest, BadFoldersAreAskedAgainAndCancelEnds) {
    const std::string media = app.MakeFolder("music");
    dialogs.folders = {"/", ""};
    dialogs.answers = {true, false};
    FirstRun();
    EXPECT_EQ(dialogs.shown.at(1),
              "You must select a directory, or Velkorandum will not work.\n"
              "DO NOT SELECT THE ROOT DIRECTORY OF A DRIVE AS YOUR MEDIA DIR.\n"
              "Click ok to return, Cancel to exit program");
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(settings.Read("main", "Setup"), "");
    EXPECT_FALSE(settings.values.remoteStatus) << "nobody listens";
    dialogs.shown.clear();
    dialogs.folders = {media, media, "", app.MakeFolder("music2"), media};
    dialogs.answers = {false, true, false}; // empty: another one; the same; not its "Playlists"
    shell->ReShow();
    EXPECT_EQ(dialogs.shown.at(1),
              "There is no music and no film in\n" + media + "\nUse it all the same?");
    EXPECT_EQ(dialogs.shown.at(4),
              "You must select a directory, or Velkorandum will not work.  Click ok to return.");
    EXPECT_EQ(dialogs.shown.at(5),
              "You must select a directory WITHIN your Media Directory.  Press ok to return.");
    EXPECT_EQ(settings.values.PlaylistDir, media);
    dialogs.folders = {app.MakeFolder("music4")};
    shell->btnmediadir_Click();
    EXPECT_EQ(settings.values.PlaylistDir, app.File("music4/Playlists"));
    EXPECT_TRUE(FolderExists(app.File("music4/Playlists")));
    dialogs.ending = true;
    dialogs.folders = {app.MakeFolder("music3"), ""};
    dialogs.answers = {true, false};
    shell->btnmediadir_Click();
    for (const char* other : {"", "music3"}) { // no folder, or none for its lists
        dialogs.folders = {*other ? app.File(other) : "", ""};
        dialogs.answers = {true, false};
        app.Write("vk_audio.m3u", "running");
        shell->btnmediadir_Click();
        EXPECT_TRUE(FileExists(app.File("vk_audio.m3u"))) << "nothing was changed";
    }
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(settings.values.MediaDir, app.File("music4"));
    EXPECT_EQ(settings.Text(setting::PlaylistDir), app.File("music4/Playlists"));
}

TEST_F(SettingsShellTest, TheOldListsAreThereUntilTheNewFolderIsOnTheDisk) {
    struct Writer : DirectFileWriter {
        std::uint64_t Replace(const std::string& path, std::string contents) override {
            listThere = FileExists(list);
            return DirectFileWriter::Replace(path, std::move(contents));
        }
        std::string list;
        bool listThere = false;
    } writer;
    LaterRun();
    writer.list = app.Write("vk_audio.m3u", "running");
    Ini ordered{state.DecimalSymbol, report, writer};
    SettingsStore store{app.Path(), ordered};
    dialogs.folders = {app.MakeFolder("other")};
    EXPECT_EQ(MediaFolders(store, dialogs, extensions).ChooseMediaDir(true),
              MediaFolders::Outcome::Chosen);
    EXPECT_TRUE(writer.listThere && !FileExists(writer.list));
}

TEST_F(SettingsShellTest, LeavingLaterLoadsTheScreensAnewAndTheExitWaitsForTheCatalogue) {
    LaterRun();
    shell->ReShow();
    EXPECT_EQ(screens.CurrentForm, "settings");
    EXPECT_TRUE(view.leaving);
    EXPECT_TRUE(shell->TopInfo().starts_with("This screen allows you to change"));
    told.clear();
    shell->DoneButton_Click();
    EXPECT_EQ(told, (std::vector<std::string>{"loading.Init 0 13", "loading.Clear",
                                              "unload screens", "load playmp3", "load velkorandum",
                                              "loading.Max", "velkorandum.ReShow"}));
    EXPECT_EQ(shell->DBStatusText(), "Disabled");
    state.DBState = DBStateValue::Rebuilding;
    shell->bExitApp_Click();
    EXPECT_EQ(shell->TopInfo(), "Please wait for the database to finish.");
    EXPECT_EQ(exits, 0);
    state.DBState = DBStateValue::OnLine;
    EXPECT_TRUE(shell->TopInfo().starts_with("This screen"));
    shell->bExitApp_Click();
    EXPECT_EQ(exits, 1);
}

TEST_F(SettingsShellTest, TheCatalogueButtonsAskBeforeTheyAct) {
    LaterRun();
    const std::string media = app.MakeFolder("other");
    dialogs.folders = {media, media};
    dialogs.answers = {true};
    shell->btnmediadir_Click();
    EXPECT_EQ(dialogs.shown.back(), "Update the media database now?\nThis may take a few minutes");
    updates.Supervise();
    EXPECT_EQ(scans, 0) << "without a template there is no catalogue";
    MakeEmptyCatalogue(app.File(EmptyCatalogueName));
    dialogs.answers = {true, true, true};
    shell->bDBForceUpdate_Click();
    updates.Supervise();
    EXPECT_EQ(scans, 1);
    state.DBState = DBStateValue::Rebuilding;
    for (const auto click : {&SettingsShell::bDeleteDB_Click, &SettingsShell::btnmediadir_Click})
        (shell.get()->*click)();
    EXPECT_EQ(shell->TopInfo(), "Please wait for the database to finish.");
    shell->bDBForceUpdate_Click();
    updates.Supervise();
    EXPECT_EQ(stops, 1);
    updates.Events().StatusChanged(DBStateValue::OnLine);
    shell->bDeleteDB_Click();
    EXPECT_EQ(shell->DBStatusText(), "Initialized");
    shell->chkDBManualUpdate_Click();
    EXPECT_TRUE(dialogs.shown.back().ends_with("--- YOU WERE WARNED ---"));
    EXPECT_EQ(settings.Read("main", "manualdb"), "true");
    EXPECT_TRUE(settings.values.manualdb);
}

} // namespace
} // namespace vk
