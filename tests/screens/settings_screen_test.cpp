#include "core/reset.h"
#include "tests/platform/polled.h"
#include "tests/screens/settings_fixture.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

using test::Polled;

struct SettingsScreenTest : testing::Test, test::SettingsFixture {
    bool Shows(const std::string& text) const {
        for (const ShadedLabel* label : screen->findChildren<ShadedLabel*>())
            if (label->Text().find(text) != std::string::npos) return true;
        return false;
    }
};

TEST_F(SettingsScreenTest, TheFoldersAreChosenByKeysAloneAndByTouchAlone) {
    const std::string media = app.MakeFolder("other"), more = app.MakeFolder("more");
    dialogs.folders = {media, media};
    EXPECT_TRUE(Press("13"));
    EXPECT_EQ(settings.values.MediaDir, media);
    const std::string lists = app.MakeFolder("other/lists");
    dialogs.folders = {lists};
    EXPECT_TRUE(Press("40"));
    EXPECT_TRUE(Press("13"));
    EXPECT_EQ(settings.values.PlaylistDir, lists);
    EXPECT_TRUE(Press("27"));
    EXPECT_EQ(screens.CurrentForm, "velkorandum");
    screens.Show("settings");
    dialogs.folders = {more, more};
    TapOn("btnMediaDir");
    EXPECT_EQ(settings.values.MediaDir, more);
    TapOn("bExitApp");
    EXPECT_EQ(exits, 1);
    TapOn("donebutton");
    EXPECT_EQ(screens.CurrentForm, "velkorandum");
}

TEST_F(SettingsScreenTest, WaysOutThatAreNotOfferedAreNotTaken) {
    screen->shellPage().EnableLeaving(false, false);
    TapOn("donebutton");
    TapOn("bExitApp");
    Press("27");
    EXPECT_EQ(screens.CurrentForm, "settings");
    EXPECT_EQ(exits, 0);
}

TEST_F(SettingsScreenTest, AKeyIsGivenByKeysAlone) {
    screens.Show("settingsKeyboard");
    for (const char* code : {"39", "40", "38", "13", "%65"})
        EXPECT_TRUE(Press(code)) << code;
    EXPECT_EQ(screen->keyboard().Message(), "MP3toRadio has been programmed to keypress A");
    EXPECT_TRUE(Press("27"));
    EXPECT_EQ(keys[Action::MP3toRadio], "65");
    EXPECT_EQ(screens.CurrentForm, "settings");
}

TEST_F(SettingsScreenTest, ACodeIsLearntByTouchAndByTheRemoteAlone) {
    screens.Show("settingsRemote");
    TapOn("btnIRvdown");
    EXPECT_TRUE(Send("4711"));
    EXPECT_EQ(screen->remote().Codes()[Action::Vdown], "4711");
    screens.Show("settingsRemote");
    Send("ok");
    EXPECT_EQ(screen->remote().ArmedAction(), Action::Vdown) << "where the finger was";
    Send("ok", true);
    Send("0815");
    EXPECT_EQ(screen->remote().Codes()[Action::Vdown], "0815");
    for (const char* code : {"down", "down", "down", "forward", "ok", "ok"})
        Send(code); // from the third column to the plate that turns the sheets
    TapOn("btnEnableIR");
    EXPECT_TRUE(settings.values.remoteStatus);
    Send("quit");
    EXPECT_EQ(remoteKeys[Action::Vdown], "0815");
    EXPECT_EQ(screens.CurrentForm, "settings");
}

TEST_F(SettingsScreenTest, ASkinIsSeenAtOnceAndTheRestWhenTheSettingsAreLeft) {
    app.Write("skins/Other.skn", "[Skin]\nSKname=The other\nSKauthor=Anna\n[Colors]\n");
    app.Write("skins/none.skn", "no skin");
    state.CurrentSkinFile = "Torque.skn";
    screen.reset();
    MakeScreen();
    screens.Show("settingsAppearance");
    EXPECT_TRUE(Shows("The other\nby Anna"));
    EXPECT_TRUE(Shows("Torque\nday and night"));
    EXPECT_FALSE(Shows("none"));
    Press("13");
    EXPECT_EQ(state.CurrentSkinFile, "Other.skn");
    Press("27");
    TapOn("donebutton");
    EXPECT_EQ(settings.Text(setting::CurrentSkin), "Other.skn");
    EXPECT_EQ(screens.CurrentForm, "velkorandum");
}

TEST_F(SettingsScreenTest, TheDesktopStandsBackAndComesBack) {
    screens.Show("settingsSystem");
    struct Step {
        const char* plate;
        std::int32_t autoPlay, kept;
    };
    for (const Step& step :
         {Step{"chkDisableAutoPlay", 255, 145}, {"chkDisableAutoPlay", 145, 145}}) {
        TapOn(step.plate);
        EXPECT_EQ(desktop.autoPlay, step.autoPlay);
        EXPECT_EQ(settings.Get(setting::AutoPlayByte), step.kept);
    }
    desktop.autoPlay = 255;
    settings.Set(setting::AutoPlayByte, -1);
    screens.Show("settingsSystem");
    TapOn("chkDisableAutoPlay");
    EXPECT_EQ(desktop.autoPlay, 145) << "nothing is known of before";
    state.DBState = DBStateValue::Rebuilding;
    TapOn("btnLaunchExplorer");
    EXPECT_EQ(desktop.opened, 0);
    EXPECT_TRUE(Shows("Please wait for the database to finish."));
    desktop.another = false;
    TapOn("chkbxMakeVKdefaultShell");
    EXPECT_TRUE(desktop.shell);
    dialogs.answers = {true};
    TapOn("btnReset");
    EXPECT_EQ(dialogs.noMarked, std::vector<std::string>{"Revert?"});
    EXPECT_EQ(exits, 1);
    EXPECT_TRUE(FileExists(app.File("settings.ini"))) << "this run still needs it";
    ResetIfAsked(settings);
    EXPECT_FALSE(FileExists(app.File("settings.ini")) || FileExists(app.File("reset")));
    screens.Show("settings");
    TapOn("bExitApp");
    EXPECT_EQ(exits, 1) << "there is nothing to exit to";
}

TEST_F(SettingsScreenTest, AnotherTypeIsLookedForAtOnceButNotWhileTheCatalogueIsBusy) {
    dialogs.inputs = {"flac"};
    dialogs.answers = {true};
    screens.Show("settingsExtensions");
    for (const char* key : {"39", "39", "13"}) // to "Add"
        Press(key);
    EXPECT_TRUE(settings.values.AudioExtensions.ends_with(":FLAC"));
    EXPECT_EQ(extensions.AudioExtensionList.back(), "FLAC");
    state.DBState = DBStateValue::Rebuilding;
    Press("13");
    EXPECT_EQ(dialogs.shown.back(), "Please wait for the database to finish");
}

TEST_F(SettingsScreenTest, ASizeThatFitsTheDisplayIsSeenAtOnce) {
    screens.Show("settingsSystem");
    Press("13"); // from the whole screen back to the last one
    EXPECT_EQ(settings.values.AppSizeCustomX, 800);
    Press("39");
    for (const auto& [size, width] : {std::pair(0, 800), {1, 640}, {2, 720}, {3, 800}, {6, 800}}) {
        Press("13");
        EXPECT_EQ(settings.values.AppSize, size);
        EXPECT_EQ(screen->width(), width) << size;
    }
}

TEST_F(SettingsScreenTest, TheLogIsReadClearedAndCarriedAway) {
    const std::string stick = app.MakeFolder("stick");
    log.WriteDebugLog("something odd");
    for (int line = 0; line < 30; ++line)
        log.WriteDebugLog(std::to_string(line) + std::string(500, 'x'));
    log.WriteDebugLog("the end");
    screens.Show("settingsDebug");
    EXPECT_TRUE(Shows("the end") && !Shows("something odd"));
    for (int press = 0; press < 60 && !Shows("something odd"); ++press)
        TapOn("btnOlder");
    EXPECT_TRUE(Shows("something odd"));
    QWidget& lines = *screen->childAt(screen->rect().center());
    test::Press(lines, {9, 90});
    test::Drag(lines, {9, -9000});
    EXPECT_TRUE(Shows("the end") && !Shows("something odd"));
    TapOn("btnCopyLog");
    EXPECT_TRUE(Shows("There is no removable drive"));
    volumes.drives = {{"/none", DriveType::Removable}, {stick, DriveType::Removable}};
    volumes.ready = {stick, "/none"};
    dialogs.choices = {0, 1};
    for (const char* outcome : {"Could not be written: /none", "Copied to "}) {
        TapOn("btnCopyLog");
        ASSERT_TRUE(Polled([&] { return screen->Draw(), Shows(outcome); })) << outcome;
    }
    ASSERT_EQ(ListFolder(stick).size(), 1u);
    const std::string copies = "stick/" + ListFolder(stick)[0].name;
    EXPECT_EQ(app.Read(copies + "/debug.log"), app.Read("debug.log"));
    EXPECT_EQ(app.Read(copies + "/settings.ini"), app.Read("settings.ini"));
    TapOn("btnClearLog");
    EXPECT_FALSE(Shows("the end"));
}

} // namespace
} // namespace vk
