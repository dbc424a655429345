// The second half of the start: from valid settings to the main menu.
#include "core/text.h"
#include "startup/astart.h"

#include <algorithm>

namespace vk {

void astart::FinishExecution() {
    Trap(base_.report, "There has been an error in astart.FinishExecution on line: ", [&] {
        n_.firstRun.unload();
        ReadUserSettings();
        if (base_.settings.values.remoteStatus) StartRemote();
        Call(n_.remote.clear);
        Call(n_.whole.settingsRead);
        base_.state.WinampWatched = false;
        if (!n_.winamp->WinAMP_FindWindow()) {
            AddBootItem("Loading Winamp");
            n_.winamp->WinAMP_Start();
        }
        LoadScreens(&LoadStep::Place::start, &LoadStep::text);
        AddBootItem("Finished Loading");
        n_.loading.SetProgressToMax();
        base_.pump.Turn();
        n_.loading.ClearScreen();
        if (!Ended()) base_.screens.Show(HomeScreen);
    });
}

void astart::ReadUserSettings() {
    AddBootItem("Revving Velkorandum");
    const Settings& s = base_.settings.values;
    n_.tables.extensions.Load(s.AudioExtensions, s.VideoExtensions);
    base_.state.FirstRadioType = base_.settings.Get(setting::FirstRadioType);
    AddBootItem("Loading User Settings");
    n_.tables.keys = ReadKeyMap(base_.settings.ini(), base_.settings.File("kb.ini"));
    n_.tables.remoteKeys = ReadRemoteMap(base_.settings.ini(), base_.settings.File("keys.ini"));
}

void astart::LoadScreens(int LoadStep::Place::*place, const char* LoadStep::*text) {
    std::vector<LoadStep> steps = n_.whole.steps();
    std::ranges::stable_sort(steps, {}, [&](const LoadStep& step) { return step.place.*place; });
    for (const LoadStep& step : steps) {
        if (Ended()) return;
        AddBootItem(step.*text);
        Call(step.load);
    }
}

void astart::StartRemote() {
    if (n_.remote.init && n_.remote.init()) {
        AddBootItem("Initializing the Remote");
        return;
    }
    base_.log.WriteDebugLog("Error Starting the Remote");
    AddBootItem("ERROR - Initializing the Remote");
}

void astart::ReloadScreens() {
    base_.commands.Forget();
    n_.whole.unloadScreens();
    Call(n_.whole.settingsRead);
    LoadScreens(&LoadStep::Place::reload, &LoadStep::reloadText);
    n_.loading.SetProgressToMax();
    base_.screens.Show(HomeScreen);
}

} // namespace vk
