#include "navigation/external_map.h"

#include "hosting/closing.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <utility>

namespace vk {

ExternalMap::ExternalMap(const Needs& needs)
    : n_(needs), collection_(n_.base, n_.programs, n_.windows),
      launcher_(n_.base, n_.programs, collection_), hunts_(n_.base, n_.programs, n_.windows),
      window_(n_.window) {}

bool ExternalMap::Offered() const {
    return FileExists(n_.base.settings.values.EXTGPSexeName);
}

void ExternalMap::Complain(const std::string& why) {
    if (std::exchange(complaint_, why) == why) return;
    if (!why.empty()) n_.base.log.WriteDebugLog(why);
    if (onChanged) onChanged();
}

void ExternalMap::Enter() {
    if (starting_) return;
    if (app_.hWnd != 0 && n_.windows.Exists(app_.hWnd))
        window_.Take(app_.hWnd);
    else
        Start();
}

void ExternalMap::Start() {
    const Settings& s = n_.base.settings.values;
    if (n_.programs.AnyRunning(app_.PID)) End(); // it lives on without a window
    starting_ = true;
    const std::string name = FileNameOf(s.EXTGPSexeName);
    Complain("Starting " + name);
    const std::string line =
        s.ExtGPSexeParams.empty() ? s.EXTGPSexeName : s.EXTGPSexeName + " " + s.ExtGPSexeParams;
    app_ = {};
    app_.PID = launcher_.OpenProgram(line, 0);
    app_.name = name;
    const Launched how = launcher_.WaitForInputIdle(app_.PID);
    const bool there = how == Launched::Window && hunts_.Follow(ProgramName(name), app_.PID);
    starting_ = false;
    if (!there && (how == Launched::Stopped || how == Launched::Window)) {
        End();
        return Complain(name + " was stopped.");
    }
    if (!Take()) return Complain(name + " shows no window.");
    if (ProgramName(name) == "STREETS") n_.windows.PostControl(app_.hWnd, 'A');
}

// The frame goes before the window is a part of ours: a program may draw one itself.
bool ExternalMap::Take() {
    if (collection_.CollectAppWindows(app_) == 0) return false;
    if (n_.base.settings.values.hideGPSTitleBar) n_.windows.SetFrame(app_.hWnd, false);
    window_.Take(app_.hWnd);
    n_.windows.Focus(app_.hWnd);
    Complain({});
    return true;
}

bool ExternalMap::EverySecond() {
    if (starting_ || (window_.Exists() && window_.Handle() == app_.hWnd)) return true;
    if (!n_.programs.AnyRunning(app_.PID)) return false;
    app_.hWnd = 0;
    if (!Take()) Complain(app_.name + " shows no window.");
    return true;
}

// The system ends: nothing runs events any more.
void ExternalMap::EndNow() {
    for (const ForeignWindow& window : collection_.Of(app_.PID))
        n_.windows.Close(window.handle);
    n_.programs.Wait(app_.PID, Closing::LastMs);
    if (!n_.programs.AnyRunning(app_.PID)) return;
    n_.base.log.WriteDebugLog("attempting to kill gps app PID " + std::to_string(app_.PID));
    n_.programs.KillAll(app_.PID);
}

void ExternalMap::End() {
    window_.Return();
    if (app_.PID == 0 || !n_.programs.AnyRunning(app_.PID)) return;
    if (n_.base.pump.Closed())
        EndNow();
    else
        Closing(n_.base, n_.programs, n_.windows, collection_).Close(app_, false);
    app_ = {};
}

} // namespace vk
