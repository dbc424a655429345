// The second half of the start: from valid settings to the main menu.
#include "core/text.h"
#include "startup/astart.h"

namespace vk {

void astart::FinishExecution() {
    Trap(n_.report, "There has been an error in astart.FinishExecution on line: ", [&] {
        n_.loader.unloadSettings();
        AddBootItem("Revving Velkorandum");
        n_.extensions.Load(n_.settings.values.AudioExtensions, n_.settings.values.VideoExtensions);
        n_.state.FirstRadioType = n_.settings.Read("main", "FirstRadioType", IniType::Long).Long();
        AddBootItem("Loading User Settings");
        n_.keys = ReadKeyMap(n_.settings.ini(), n_.settings.File("kb.ini"));
        n_.remoteKeys = ReadRemoteMap(n_.settings.ini(), n_.settings.File("keys.ini"));
        if (n_.settings.values.remoteStatus) StartRemote();
        Call(n_.clearRemote);
        n_.state.WinampWatched = false;
        if (!winamp_->WinAMP_FindWindow()) {
            AddBootItem("Loading Winamp");
            winamp_->WinAMP_Start();
        }
        LoadScreen("Loading Main Menu", n_.loader.velkorandum);
        LoadScreen("Loading Media Browser", n_.loader.playlists);
        LoadScreen("Loading Movie Player", n_.loader.playmovie);
        LoadScreen("Loading Media Player", n_.loader.playmp3);
        if (n_.settings.values.GPSModule != 0) LoadScreen("Loading GPS System", n_.loader.frmGPS);
        if (n_.settings.values.xmpcr_enabled) LoadScreen("Loading XM Control", n_.loader.frmXMCtl);
        AddBootItem("Finished Loading");
        n_.loading.SetProgressToMax();
        n_.clock.DoEvents(0);
        n_.loading.ClearScreen();
        n_.screens.Show("velkorandum");
    });
}

void astart::LoadScreen(const char* step, const std::function<void()>& load) {
    AddBootItem(step);
    if (load) load();
}

void astart::StartRemote() {
    if (n_.initRemote && n_.initRemote()) {
        AddBootItem("Initializing the Remote");
        return;
    }
    n_.log.WriteDebugLog("Error Starting the Remote");
    AddBootItem("ERROR - Initializing the Remote");
}

void astart::ReloadScreens() {
    n_.loader.unloadScreens();
    LoadScreen("Reloading Main Menu", n_.loader.velkorandum);
    LoadScreen("Reloading Media Browser", n_.loader.playlists);
    LoadScreen("Reloading Movie Player", n_.loader.playmovie);
    LoadScreen("Reloading Media Player", n_.loader.playmp3);
    if (n_.settings.values.xmpcr_enabled) LoadScreen("Loading XM Control", n_.loader.frmXMCtl);
    if (n_.settings.values.GPSModule != 0) LoadScreen("Loading GPS System", n_.loader.frmGPS);
    n_.loading.SetProgressToMax();
    n_.screens.Show("velkorandum");
}

} // namespace vk
