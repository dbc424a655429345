#include "settings/settings_shell.h"

#include "core/text.h"
#include "core/time_of_day.h"

namespace vk {

namespace {

constexpr char TopInfo[] = "This screen allows you to change different aspects of Velkorandum.  "
                           "Click on the TABS to select "
                           "different settings screens.";
constexpr char Welcome[] =
    "Welcome to Velkorandum.  You will be prompted to answer a few questions.  Please be as "
    "specific "
    "as possible, because incorrect answers could cause Velkorandum to behave in unexpected ways.";
constexpr int LoadingSteps = 13;

} // namespace

void SettingsShell::ReShow() {
    Trap(n_.report, "An error occured in settings.Form_Load ", [&] {
        n_.screens.CurrentForm = "settings";
        view_.SetTopInfo(TopInfo);
        if (!FirstRunDue) n_.screens.HideOthers("settings");
        if (!n_.state.Setup)
            FirstRun();
        else
            view_.EnableLeaving(true, true);
        if (n_.screens.CurrentForm != "settings") return;
        n_.settings.LoadSettings();
        ReadRemoteKeys();
        view_.ShowShell();
    });
}

void SettingsShell::ReadRemoteKeys() {
    n_.remoteKeys = ReadRemoteMap(n_.settings.ini(), n_.settings.File("keys.ini"));
}

void SettingsShell::FirstRun() {
    Trap(n_.report, "An error occured in settings.FirstRun ", [&] {
        view_.EnableLeaving(false, false);
        view_.ShowShell();
        n_.dialogs.ShowMessage(Welcome);
        n_.settings.LoadSettings();
        n_.extensions.Load(n_.settings.values.AudioExtensions, n_.settings.values.VideoExtensions);
        if (!folders_.ChooseMediaDir()) return n_.exitApplication();
        view_.ShowTexts();
        n_.dialogs.ShowMessage(
            "Velkorandum will now update the database.\nThis may take a few minutes.");
        n_.catalogue.Open();
        view_.EnableLeaving(true, true);
        n_.settings.Set(setting::Setup, true);
        n_.state.Setup = true;
        DoneButton_Click();
    });
}

void SettingsShell::btnmediadir_Click() {
    Trap(n_.report, "An error occured in settings.btnmediadir_Click ", [&] {
        if (RefusedWhileBusy()) return;
        const std::string before = Values().MediaDir;
        if (!folders_.ChooseMediaDir()) return n_.exitApplication();
        view_.ShowTexts();
        if (Values().MediaDir != before) AskForUpdate();
    });
}

void SettingsShell::btnPlaylistDir_Click() {
    Trap(n_.report, "An error occured in settings.btnPlaylistDir_Click ", [&] {
        folders_.ChoosePlaylistDir(true);
        view_.ShowTexts();
    });
}

void SettingsShell::ChooseSkin() {
    const Settings& s = n_.settings.values;
    const auto time1 = ParseTimeOfDay(s.Time1);
    const auto time2 = ParseTimeOfDay(s.Time2);
    const bool day = time1 && time2 && IsDay(n_.clock.Now().MinuteOfDay(), *time1, *time2);
    n_.state.CurrentSkinFile = day ? s.CurrentSkin : s.CurrentNTSkin;
}

void SettingsShell::DoneButton_Click() {
    Trap(n_.report, "An error occured in settings.DoneButton_Click ", [&] {
        n_.loading.InitProgress(0, LoadingSteps);
        n_.loading.ClearScreen();
        n_.loading.ReBlit();
        n_.screens.CurrentForm = "velkorandum";
        n_.settings.LoadSettings();
        ChooseSkin();
        n_.keys = ReadKeyMap(n_.settings.ini(), n_.settings.File("kb.ini"));
        ReadRemoteKeys();
        n_.skin.LoadSkin();
        n_.askPlayer();
        n_.window.ForceForegroundWindow();
        const bool first = FirstRunDue;
        if (first)
            n_.dialogs.ShowMessage("You can click on the clockbar at the bottom\n"
                                   "to return to the settings screen.");
        FirstRunDue = false;
        if (n_.settings.values.hidemouse) n_.window.ShowCursor(false);
        n_.loading.ReBlit();
        first ? n_.finishStart() : n_.reloadScreens();
    });
}

void SettingsShell::bExitApp_Click() {
    Trap(n_.report, "An error occured in settings.bExitApp_Click ", [&] {
        if (RefusedWhileBusy()) return;
        n_.settings.Set(setting::CurrentSelectID, 0);
        n_.window.ShowCursor(true);
        n_.exitApplication();
    });
}

} // namespace vk
