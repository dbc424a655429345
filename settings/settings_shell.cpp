#include "settings/settings_shell.h"

#include "core/text.h"
#include "core/time_of_day.h"
#include "platform/files.h"

namespace vk {

namespace {

constexpr char Purpose[] = "This screen allows you to change different aspects of Velkorandum.  "
                           "Click on the TABS to select "
                           "different settings screens.";
constexpr char Welcome[] =
    "Welcome to Velkorandum.  You will be prompted to answer a few questions.  Please be as "
    "specific "
    "as possible, because incorrect answers could cause Velkorandum to behave in unexpected ways.";
constexpr int LoadingSteps = 13;
constexpr const char* RowsForFingers = "1"; // rows of lists twice as high as their text

} // namespace

std::string SettingsShell::TopInfo() const {
    return refused_ && n_.catalogue.Busy() ? "Please wait for the database to finish." : Purpose;
}

void SettingsShell::ReShow() {
    Trap(n_.base.report, "An error occured in settings.Form_Load ", [&] {
        n_.base.screens.CurrentForm = "settings";
        refused_ = false;
        if (!FirstRunDue) n_.base.screens.HideOthers("settings");
        if (!n_.base.state.Setup)
            FirstRun();
        else
            view_.EnableLeaving(true, true);
        if (n_.base.screens.CurrentForm != "settings") return;
        n_.base.settings.LoadSettings();
        TakeFirstDrive();
        ReadRemoteKeys();
        view_.ShowShell();
    });
}

// A drive that was never chosen.
void SettingsShell::TakeFirstDrive() {
    const auto& drives = n_.base.state.CDDrives;
    if (Values().CDDriveLetter.empty() && !drives.empty())
        n_.base.settings.Set(setting::CDDriveLetter, drives.front());
}

void SettingsShell::ReadRemoteKeys() {
    n_.remoteKeys = ReadRemoteMap(n_.base.settings.ini(), n_.base.settings.File("keys.ini"));
}

void SettingsShell::FirstRun() {
    Trap(n_.base.report, "An error occured in settings.FirstRun ", [&] {
        view_.EnableLeaving(false, false);
        view_.ShowShell();
        receiver_.Begin(); // whoever has nothing but a remote can answer the questions
        n_.base.dialogs.ShowMessage(Welcome);
        BeginAsToday();
        n_.base.settings.LoadSettings();
        n_.extensions.Load(n_.base.settings.values.AudioExtensions,
                           n_.base.settings.values.VideoExtensions);
        if (folders_.ChooseMediaDir(false) == MediaFolders::Outcome::GivenUp)
            return n_.ways.exitApplication();
        view_.ShowTexts();
        receiver_.End(); // other devices want their ports
        n_.base.dialogs.ShowMessage(
            "Velkorandum will now update the database.\nThis may take a few minutes.");
        n_.catalogue.Open();
        view_.EnableLeaving(true, true);
        n_.base.settings.Set(setting::Setup, true);
        n_.base.state.Setup = true;
        DoneButton_Click();
    });
}

// A new system knows today's files and panels that are touched; one that was set up before goes on
// as it was.
void SettingsShell::BeginAsToday() {
    SettingsStore& settings = n_.base.settings;
    settings.Write({{setting::ExtendedTags, true},
                    {setting::AudioExtensions,
                     WithExtensions(settings.Get(setting::AudioExtensions), NewerAudio)},
                    {setting::VideoExtensions,
                     WithExtensions(settings.Get(setting::VideoExtensions), NewerVideo)}});
    if (settings.Get(setting::ListSpacing) == setting::ListSpacing.initial)
        settings.Set(setting::ListSpacing, RowsForFingers);
}

void SettingsShell::btnmediadir_Click() {
    Trap(n_.base.report, "An error occured in settings.btnmediadir_Click ", [&] {
        if (RefusedWhileBusy()) return;
        const std::string before = Values().MediaDir;
        const bool mayKeep = FolderExists(before);
        if (folders_.ChooseMediaDir(mayKeep) == MediaFolders::Outcome::GivenUp)
            return n_.ways.exitApplication();
        view_.ShowTexts();
        if (Values().MediaDir != before) AskForUpdate();
    });
}

void SettingsShell::btnPlaylistDir_Click() {
    Trap(n_.base.report, "An error occured in settings.btnPlaylistDir_Click ", [&] {
        folders_.ChoosePlaylistDir();
        view_.ShowTexts();
    });
}

void SettingsShell::ChooseSkin() {
    const Settings& s = n_.base.settings.values;
    const auto time1 = ParseTimeOfDay(s.Time1);
    const auto time2 = ParseTimeOfDay(s.Time2);
    const bool day = time1 && time2 && IsDay(n_.base.clock.Now().MinuteOfDay(), *time1, *time2);
    n_.base.state.CurrentSkinFile = day ? s.CurrentSkin : s.CurrentNTSkin;
}

bool SettingsShell::UseSkin() {
    const std::string before = n_.base.state.CurrentSkinFile;
    ChooseSkin();
    if (n_.base.state.CurrentSkinFile == before) return false;
    n_.skin.LoadSkin();
    return true;
}

void SettingsShell::DoneButton_Click() {
    Trap(n_.base.report, "An error occured in settings.DoneButton_Click ", [&] {
        n_.loading.InitProgress(0, LoadingSteps);
        n_.loading.ClearScreen();
        n_.loading.ReBlit();
        n_.base.screens.CurrentForm = "velkorandum";
        n_.base.settings.LoadSettings();
        ChooseSkin();
        n_.keys = ReadKeyMap(n_.base.settings.ini(), n_.base.settings.File("kb.ini"));
        ReadRemoteKeys();
        n_.skin.LoadSkin();
        n_.ways.askPlayer();
        n_.base.window.ForceForegroundWindow();
        const bool first = FirstRunDue;
        if (first)
            n_.base.dialogs.ShowMessage("You can click on the clockbar at the bottom\n"
                                        "to return to the settings screen.");
        FirstRunDue = false;
        if (n_.base.settings.values.hidemouse) n_.base.window.ShowCursor(false);
        n_.loading.ReBlit();
        first ? n_.ways.finishStart() : n_.ways.reloadScreens();
    });
}

void SettingsShell::bExitApp_Click() {
    Trap(n_.base.report, "An error occured in settings.bExitApp_Click ", [&] {
        if (RefusedWhileBusy()) return;
        n_.base.settings.Set(setting::CurrentSelectID, 0);
        n_.base.window.ShowCursor(true);
        n_.ways.exitApplication();
    });
}

} // namespace vk
