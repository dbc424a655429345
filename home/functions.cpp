// What the menu's icons start.
#include "core/optical_drive.h"
#include "core/text.h"
#include "home/main_menu.h"
#include "platform/files.h"
#include "playback/resume.h"
#include "playback/tuner_choice.h"

#include <algorithm>

namespace vk {

struct MainMenu::Function {
    int number;
    void (MainMenu::*start)();
};

const MainMenu::Function MainMenu::Functions[] = {
    {1, &MainMenu::StartAudio}, {2, &MainMenu::StartBrowser},
    {3, &MainMenu::StartVideo}, {4, &MainMenu::StartApplications},
    {5, &MainMenu::StartRadio}, {6, &MainMenu::StartGPS},
    {7, &MainMenu::Exit},
};

void MainMenu::runok(int item) {
    Trap(base_.report, "An error occured in velkorandum.runok ", [&] {
        const MenuIconData* icon = Selected();
        if (item == 0 && (!icon || icon->function.empty()))
            return Message(
                "Someone didn't set the function for this button when they created this skin!");
        if (item == 0)
            LastStartSelection = static_cast<int>(ParseDecimal(icon->function).value_or(0));
        Update(CurrentSelection, base_.settings.values.UseAnimation);
        for (const Function& function : Functions)
            if (function.number == LastStartSelection) return (this->*function.start)();
    });
}

// Saves the selection and shows another screen; false when this system has none of that name.
bool MainMenu::Leave(const char* screen) {
    if (!base_.screens.Find(screen)) return false;
    switchingform();
    view_.ShowLoading("Loading");
    base_.screens.Show(screen);
    return true;
}

void MainMenu::OpenBrowser(std::int16_t mode) {
    if (base_.settings.values.PlaylistDir == "none") return view_.ShowFrame(true);
    n_.browser.ListMode = mode;
    n_.browser.CurrentPath = base_.settings.values.MediaDir;
    n_.browser.FromPlayer = n_.browser.FromMovie = false;
    n_.browser.RestoreHistory = n_.audio.PlayMode == PlayAudio || n_.audio.PlayMode == PlayXM;
    Leave("playlists");
}

void MainMenu::StartBrowser() {
    OpenBrowser(ListFromMenu);
}

// A list that came from a disc is resumed only when that disc is in the drive.
bool MainMenu::DiscMatches(std::int32_t serial) const {
    if (serial == 0 || serial == -1) return true;
    const std::string drive = OpticalRoot(base_.volumes, base_.settings.values.CDDriveLetter);
    return !drive.empty() && base_.volumes.IsReady(drive) && base_.volumes.Serial(drive) == serial;
}

void MainMenu::StartAudio() {
    if (FileLength(base_.settings.File(AudioListName)) == 0 ||
        base_.settings.values.MediaDir == "none" ||
        base_.settings.Get(setting::CurrentTrack) == 0 ||
        !DiscMatches(base_.settings.Get(setting::AudioVolumeSerial)) ||
        PrepareResume(base_.settings, base_.volumes, n_.audio) != ResumeResult::Ready)
        return OpenBrowser(ListFromMenu);
    if (!Leave("playmp3")) Message("The audio player is not available.");
}

// A disc needs no list, but itself.
void MainMenu::StartVideo() {
    const std::string list = base_.settings.File(VideoListName);
    const bool disc = base_.settings.Get(setting::PlayDVD);
    const std::int32_t serial = base_.settings.Get(setting::VideoVolumeSerial);
    const bool there = disc ? serial != 0 && serial != -1 : FileLength(list) > 0;
    if (!there || !DiscMatches(serial)) return OpenBrowser(ListFromMenu);
    n_.video = {.PlayDVD = disc,
                .ListFile = list,
                .MovieToSelect =
                    std::max<std::int32_t>(0, base_.settings.Get(setting::SelectedMovie)) + 1,
                .VolumeSerial = serial};
    if (!Leave("playmovie")) Message("The movie player is not available.");
}

void MainMenu::StartApplications() {
    if (!FileExists(base_.settings.File("apps.lst")))
        return Message("You must first configure external app support.");
    OpenBrowser(ListApplications);
}

void MainMenu::StartRadio() {
    const Settings& s = base_.settings.values;
    const PlayModeValue tuner = FirstTuner(s, base_.settings.Get(setting::FirstRadioType));
    if (tuner == PlayNone) return Message("You must first configure your radio.");
    if (!base_.screens.Find("playmp3")) return Message("The radio is not available.");
    ChooseTuner(tuner, base_.settings, n_.audio);
    Leave("playmp3");
}

void MainMenu::StartGPS() {
    if (base_.settings.values.GPSModule == 0) return Message("You have no GPS module configured");
    if (!base_.screens.Find("frmGPS")) return Message("The GPS system is not available.");
    n_.doors.loadGPS();
}

void MainMenu::TurnDevicesOff() {
    if (n_.doors.turnDevicesOff)
        n_.doors.turnDevicesOff([this](const std::string& text) { Message(text); });
}

// In mode 0 the power action ends the system, when the machine has agreed to go off: until then
// what plays goes on.
void MainMenu::Exit() {
    const bool off = base_.settings.values.ShutDownMode == 0;
    if (off) base_.settings.Set(setting::CurrentSelectID, 0);
    if (n_.doors.powerAction) n_.doors.powerAction();
}

} // namespace vk
