#include "browser/ways_out.h"

namespace vk {

void WaysOut::Back() {
    leave_();
    desk_.SetTitle("");
    const bool toPlayer = std::exchange(desk_.needs.state.FromPlayer, false);
    desk_.needs.players.audio.bStartPlaying = false;
    const Screens& screens = desk_.needs.base.screens;
    if (!toPlayer || !screens.ReDisplay("playmp3")) screens.Show("velkorandum");
}

void WaysOut::GoHome() {
    desk_.needs.state.FromPlayer = false;
    leave_();
    EndPlayer();
    desk_.needs.base.screens.Show("velkorandum");
}

// The menu silences what plays: better that the player saves it before.
void WaysOut::EndPlayer() {
    const BrowserPlayers& players = desk_.needs.players;
    if (players.audio.PlayMode != PlayNone) players.transport.doquit();
}

void WaysOut::ShowGPS() {
    if (!HasGPS()) return;
    leave_();
    desk_.needs.base.screens.Show("frmGPS");
}

bool WaysOut::HasRadio() const {
    return desk_.needs.Options().dlink_enabled || desk_.needs.Options().xmpcr_enabled;
}

// The satellite tuner when it is the only one, or the first of two.
bool WaysOut::RadioIsXM() const {
    const Settings& settings = desk_.needs.Options();
    if (settings.dlink_enabled && settings.xmpcr_enabled)
        return desk_.needs.base.state.FirstRadioType == 1;
    return settings.xmpcr_enabled;
}

void WaysOut::SetPlayerButton() {
    if (HasRadio()) desk_.view.SetButton(BrowserButton::Radio, RadioIsXM() ? "xm.gif" : "fm.gif");
}

void WaysOut::ShowRadio() {
    if (!HasRadio()) return;
    const bool xm = RadioIsXM();
    const std::int32_t mode = xm ? PlayXM : PlayFM;
    const BrowserPlayers& players = desk_.needs.players;
    if (!players.HasTuner || !players.HasTuner(mode))
        return desk_.Say("The radio is not available.");
    players.audio.PlayMode = mode;
    players.audio.ListTitle = xm ? XMSourceName : FMSourceName;
    players.audio.ListFile = desk_.needs.base.settings.File("presets.lst");
    players.audio.VolumeSerial = -1;
    players.audio.bStartPlaying = true;
    desk_.needs.state.FromPlayer = false;
    leave_();
    desk_.needs.base.screens.Show("playmp3");
}

} // namespace vk
