#include "hosting/hosting.h"

#include <algorithm>
#include <iterator>

namespace vk {

namespace {

constexpr int ShowNormal = 1, ShowMaximized = 3; // of ShowWindow

} // namespace

Hosting::Hosting(const Needs& needs) : n_(needs) {
    n_.windows.onChange = [this] {
        launcher_.Look();
        if (onWindows) onWindows();
    };
}

Hosting::~Hosting() {
    n_.windows.onChange = {};
}

RunningApp* Hosting::Current() {
    const auto found = std::ranges::find(RunningApps_, current_, &RunningApp::PID);
    return found == RunningApps_.end() ? nullptr : &*found;
}

bool Hosting::Loaded(const std::string& name) const {
    return std::ranges::count(RunningApps_, name, &RunningApp::name) > 0;
}

bool Hosting::Select(const std::string& name) {
    const auto found = std::ranges::find(RunningApps_, name, &RunningApp::name);
    if (found == RunningApps_.end()) return false;
    current_ = found->PID;
    return true;
}

void Hosting::TakeUpAgain() {
    const auto back = std::stable_partition(left_.begin(), left_.end(), [&](const RunningApp& app) {
        return app.ended || !collection_.AppHasWindow(app.PID);
    });
    std::move(back, left_.end(), std::back_inserter(RunningApps_));
    left_.erase(back, left_.end());
}

bool Hosting::StartOrResume(const ListedApp& app) {
    TakeUpAgain();
    if (Select(app.name) && Watch()) return true;
    return ExecCmd(app.command, app.name, app.maximize, app.force);
}

// The show command is the smaller one for what is to be large: the frame is given to the window
// when that is there.
bool Hosting::ExecCmd(const std::string& commandLine, const std::string& name, bool maximize,
                      bool force) {
    said_.clear();
    return Trap(n_.base.report, "An error occured in modFunctions.ExecCmd ", false, [&] {
        const ProgramId program =
            launcher_.OpenProgram(commandLine, maximize ? ShowNormal : ShowMaximized);
        n_.base.log.WriteDebugLog("launched application, OpenProgram() returned: " +
                                  std::to_string(program != 0 ? 1 : 0));
        RunningApps_.push_back(
            {.PID = program, .bForceMax = force, .name = name, .bMaximize = maximize || force});
        current_ = program;
        const Launched how = launcher_.WaitForInputIdle(program);
        RunningApp* app = Current();
        if (!app) return false;
        if (how != Launched::Window) return Fails(*app, how);
        collection_.CollectAppWindows(*app);
        collection_.Frame(*app);
        n_.base.log.WriteDebugLog(
            (maximize ? "Ext App Launched (maximized) - " : "Ext App Launched - ") + name);
        return true;
    });
}

// A program that nobody can see, nobody can end.
bool Hosting::Fails(const RunningApp& app, Launched how) {
    said_ = app.PID == 0               ? app.name + " could not be started."
            : how == Launched::Ended   ? app.name + " has ended without a window."
            : how == Launched::Stopped ? app.name + " was stopped."
                                       : app.name + " shows no window and was ended.";
    n_.base.log.WriteDebugLog(said_);
    if (how != Launched::Ended) n_.programs.KillAll(app.PID);
    Drop(app.PID, true);
    return false;
}

// What has no window any more may still be saving: it is ended with the system at the latest.
void Hosting::Drop(ProgramId program, bool ended) {
    const auto found = std::ranges::find(RunningApps_, program, &RunningApp::PID);
    if (found == RunningApps_.end()) return;
    std::erase_if(left_, [&](const RunningApp& each) { return !n_.programs.AnyRunning(each.PID); });
    if (program != 0 && n_.programs.AnyRunning(program)) {
        left_.push_back(*found);
        left_.back().ended = ended;
    }
    RunningApps_.erase(found);
    if (current_ == program) current_ = RunningApps_.empty() ? 0 : RunningApps_.back().PID;
}

bool Hosting::Watch() {
    RunningApp* app = Current();
    if (!app) return false;
    const bool there = collection_.CollectAppWindows(*app) > 0;
    if (there) {
        if (asked_ == app->PID && app->hWndList.size() < asking_) asked_ = 0; // it was answered
        app->windowlessSinceMs = 0;
        collection_.Frame(*app);
        collection_.ForceMaximize(*app);
        return true;
    }
    const std::int64_t now = n_.base.clock.TickMs();
    if (app->windowlessSinceMs == 0) app->windowlessSinceMs = now;
    const bool waits = now - app->windowlessSinceMs < GraceMs && n_.programs.AnyRunning(app->PID);
    if (!waits) Drop(app->PID, false);
    return waits;
}

void Hosting::Sweep() {
    RunningApps gone = RunningApps_;
    std::erase_if(gone, [&](const RunningApp& app) { return collection_.AppHasWindow(app.PID); });
    for (const RunningApp& app : gone)
        Drop(app.PID, false);
    TakeUpAgain();
}

bool Hosting::CloseCurrent() {
    RunningApp* app = Current();
    if (!app) return true;
    const ProgramId program = app->PID;
    RunningApp closed = *app; // events run meanwhile: the record may go
    if (!closing_.Close(closed, asked_ != program)) {
        asked_ = program;
        asking_ = collection_.Of(program).size();
        return false;
    }
    asked_ = 0;
    Drop(program, true);
    return true;
}

// Nobody sees them any more, or they lie over everything. Until they have ended they count as ours.
void Hosting::EndLeftBehind() {
    RunningApps behind;
    for (const ProgramId program : n_.programs.LeftBehind()) {
        n_.base.log.WriteDebugLog("A program of the last start still runs and is ended: PID " +
                                  std::to_string(program));
        behind.push_back({.PID = program, .ended = true});
    }
    if (behind.empty()) return;
    left_.insert(left_.end(), behind.begin(), behind.end());
    closing_.CloseBehind(behind);
}

void Hosting::CloseAll() {
    RunningApps all = RunningApps_;
    all.insert(all.end(), left_.begin(), left_.end());
    RunningApps_.clear();
    left_.clear();
    current_ = 0;
    closing_.CloseAll(all);
}

} // namespace vk
