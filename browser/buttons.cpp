// The browser's touch buttons.
#include "browser/browser.h"

namespace vk {

void Browser::PlayPause() {
    const auto* player = needs_.screens.Find("playmp3");
    if (needs_.audio.PlayMode != PlayNone && player && player->DoPause) player->DoPause();
    ShowState();
}

void Browser::ToggleToolFrame() {
    toolFrameOpen_ = !toolFrameOpen_;
    view_.SetButton(BrowserButton::ToolFrame, toolFrameOpen_ ? "menusel.gif" : "menu.gif");
    view_.ShowToolFrame(toolFrameOpen_);
}

void Browser::CloseToolFrame() {
    if (toolFrameOpen_) ToggleToolFrame();
}

void Browser::ToggleRecurse() {
    RecurseArmed = !RecurseArmed;
    view_.SetButton(BrowserButton::Recurse, RecurseArmed ? "recursesel.gif" : "recurse.gif");
}

void Browser::ToggleApplications() {
    CloseToolFrame();
    Run("Image14_Click", [&] {
        const bool applications = needs_.state.ListMode == ListApplications;
        needs_.state.ListMode = applications ? ListFromMenu : ListApplications;
        PopulateAnew();
    });
}

void Browser::Eject() {
    CloseToolFrame();
    Run("Image16_Click", [&] {
        const std::string& drive = builder_.Drives().DiscDrive();
        const bool opened = !needs_.app.CDReady || needs_.volumes.Eject(drive);
        needs_.state.CurrentPath = needs_.MediaDir();
        PopulateAnew();
        if (!opened) ShowNotice("The drive could not be opened.");
    });
}

void Browser::ShowGPS() {
    if (!HasGPS() || KeepsBuilding()) return;
    CloseToolFrame();
    switchingform();
    needs_.screens.Show("frmGPS");
}

void Browser::GoHome() {
    if (OnlyEnds() || KeepsBuilding()) return;
    CloseToolFrame();
    needs_.state.FromPlayer = false;
    switchingform();
    EndPlayer();
    needs_.screens.Show("velkorandum");
}

// The menu silences what plays: better that the player saves it before.
void Browser::EndPlayer() {
    const auto* player = needs_.screens.Find("playmp3");
    if (player && needs_.audio.PlayMode != PlayNone) player->doquit();
}

bool Browser::HasRadio() const {
    const Settings& settings = needs_.settings.values;
    return settings.dlink_enabled || settings.xmpcr_enabled;
}

// The satellite tuner when it is the only one, or the first of two.
static bool RadioIsXM(const BrowserNeeds& needs) {
    const Settings& settings = needs.settings.values;
    if (settings.dlink_enabled && settings.xmpcr_enabled) return needs.app.FirstRadioType == 1;
    return settings.xmpcr_enabled;
}

void Browser::SetPlayerButton() {
    if (HasRadio()) view_.SetButton(BrowserButton::Radio, RadioIsXM(needs_) ? "xm.gif" : "fm.gif");
}

void Browser::ShowRadio() {
    if (!HasRadio() || KeepsBuilding()) return;
    const bool xm = RadioIsXM(needs_);
    const std::int32_t mode = xm ? PlayXM : PlayFM;
    if (!needs_.HasTuner || !needs_.HasTuner(mode))
        return ShowNotice("The radio is not available.");
    needs_.audio.PlayMode = mode;
    needs_.audio.ListTitle = xm ? XMSourceName : FMSourceName;
    needs_.audio.ListFile = needs_.settings.File("presets.lst");
    needs_.audio.VolumeSerial = -1;
    needs_.audio.bStartPlaying = true;
    CloseToolFrame();
    switchingform();
    needs_.state.FromPlayer = false;
    needs_.screens.Show("playmp3");
}

} // namespace vk
