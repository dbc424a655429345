// What runs as long as the process: the 400 ms supervisor, and the orderly end.
#include "startup/astart.h"

namespace vk {

namespace {

// A screen left for another may lead to a third: player, browser, menu.
constexpr int MostScreensToLeave = 4;

} // namespace

void astart::Timer1_Timer() {
    timer1_->Stop();
    if (n_.screens.Count() == 0) n_.window.ForceForegroundWindow();
    Call(n_.catalogue.supervise);
    if (n_.state.WinampWatched && winamp_) WatchPlayer();
    if (!unloaded_) timer1_->Start(SupervisorMs);
}

void astart::WatchPlayer() {
    if (winamp_->WinAMP_FindWindow()) return;
    n_.log.WriteDebugLog("Winamp was restarted");
    winamp_->WinAMP_Start();
    // The browser would go back to the player screen, whose player has lost its state as well.
    for (int i = 0; i < MostScreensToLeave && n_.screens.CurrentForm != "velkorandum"; ++i) {
        const std::string form = n_.screens.CurrentForm.Text();
        if (const ScreenOperations* screen = n_.screens.Current())
            TrapAndLog(n_.report, "Leaving " + form + ": ", screen->doquit);
        if (n_.screens.CurrentForm == form) return; // it asks something first
    }
}

void astart::LoadGPS() {
    if (n_.settings.values.GPSModule != 0) n_.screens.Show("frmGPS");
}

void astart::Form_QueryUnload(bool osShutdown) {
    if (!osShutdown) {
        n_.log.WriteDebugLog("Velkorandum terminated cleanly by user");
        return;
    }
    n_.log.WriteDebugLog("shutdown initiated by administrative request - os shutdown");
    const std::string& form = n_.screens.CurrentForm.Text();
    const bool saves =
        form == "playlists" || form == "playmp3" || form == "playmovie" || form == "ExtAppTools";
    if (const ScreenOperations* screen = saves ? n_.screens.Current() : nullptr)
        TrapAndLog(n_.report, "Leaving " + form + ": ", screen->doquit);
}

void astart::Form_Unload() {
    if (unloaded_) return;
    unloaded_ = true;
    timer1_->Stop();
    UnRefClass();
    if (!keepRemoteLearning_)
        n_.settings.Write("remote", "learn", n_.remoteLearnText ? n_.remoteLearnText() : "0");
    if (n_.settings.values.hidemouse) n_.window.ShowCursor(true);
}

} // namespace vk
