#include "browser/buttons.h"

namespace vk {

void BrowserButtons::PlayPause() {
    const BrowserPlayers& players = desk_.needs.players;
    if (players.audio.PlayMode != PlayNone) players.transport.DoPause();
    ShowState();
}

void BrowserButtons::ToggleToolFrame() {
    toolFrameOpen_ = !toolFrameOpen_;
    desk_.view.SetButton(BrowserButton::ToolFrame, toolFrameOpen_ ? "menusel.gif" : "menu.gif");
    desk_.view.ShowToolFrame(toolFrameOpen_);
}

void BrowserButtons::CloseToolFrame() {
    if (toolFrameOpen_) ToggleToolFrame();
}

void BrowserButtons::ToggleApplications() {
    CloseToolFrame();
    desk_.Run("Image14_Click", [this] {
        std::int16_t& mode = desk_.needs.state.ListMode;
        mode = mode == ListApplications ? ListFromMenu : ListApplications;
        lists_.PopulateAnew();
    });
}

void BrowserButtons::Eject() {
    CloseToolFrame();
    desk_.Run("Image16_Click", [this] {
        const std::string& drive = lists_.place.Drives().DiscDrive();
        const bool opened =
            !desk_.needs.base.state.CDReady || desk_.needs.base.volumes.Eject(drive);
        desk_.needs.state.CurrentPath = desk_.needs.MediaDir();
        lists_.PopulateAnew();
        if (!opened) desk_.Say("The drive could not be opened.");
    });
}

void BrowserButtons::Resume() {
    desk_.Run("Image19_Click", [this] { chooser_.Player().Resume(); });
}

void BrowserButtons::ShowState() {
    const AudioState& audio = desk_.needs.players.audio;
    const bool playing = audio.PlayMode != PlayNone && !audio.bPaused;
    desk_.view.SetButton(BrowserButton::PlayPause, playing ? "pause.gif" : "play.gif");
    const DateTime now = desk_.needs.base.clock.Now();
    const LocaleInfo& locale = desk_.needs.base.locale;
    desk_.view.SetClock(locale.LongDate(now) + "    " + locale.ShortTime(now));
}

} // namespace vk
