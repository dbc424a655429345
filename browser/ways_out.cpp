#include "browser/ways_out.h"

#include "playback/tuner_choice.h"

namespace vk {

void WaysOut::Back() {
    leave_();
    desk_.SetTitle("");
    const bool toPlayer = std::exchange(desk_.needs.state.FromPlayer, false);
    const bool toMovie = std::exchange(desk_.needs.state.FromMovie, false);
    desk_.needs.players.audio.bStartPlaying = false;
    const Screens& screens = desk_.needs.base.screens;
    if (toMovie && screens.ReDisplay("playmovie")) return;
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

PlayModeValue WaysOut::Radio() const {
    return FirstTuner(desk_.needs.Options(), desk_.needs.base.state.FirstRadioType);
}

void WaysOut::SetPlayerButton() {
    if (HasRadio())
        desk_.view.SetButton(BrowserButton::Radio, Radio() == PlayXM ? "xm.gif" : "fm.gif");
}

void WaysOut::ShowRadio() {
    if (!HasRadio()) return;
    const BrowserPlayers& players = desk_.needs.players;
    if (!players.HasTuner || !players.HasTuner(Radio()))
        return desk_.Say("The radio is not available.");
    ChooseTuner(Radio(), desk_.needs.base.settings, players.audio);
    const bool plays = std::exchange(desk_.needs.state.FromPlayer, false);
    leave_();
    const Screens& screens = desk_.needs.base.screens;
    plays ? screens.ReDisplay("playmp3") : screens.Show("playmp3");
}

} // namespace vk
