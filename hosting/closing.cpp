#include "hosting/closing.h"

#include <algorithm>
#include <string>
#include <utility>

namespace vk {

Closing::Closing(Base& base, Programs& programs, ForeignWindows& windows,
                 const AppWindows& collection)
    : base_(base), programs_(programs), windows_(windows), collection_(collection),
      later_(base.clock.MakeTimer([this] { NextBehind(); })) {}

bool Closing::Asks(const RunningApp& app) const {
    const auto now = collection_.Of(app.PID);
    const bool mainThere = std::ranges::count(now, app.hWnd, &ForeignWindow::handle) > 0;
    return mainThere && std::ranges::any_of(now, [&](const ForeignWindow& window) {
               return std::ranges::count(app.hWndList, window.handle) == 0;
           });
}

// True when no window is left.
bool Closing::WindowsGone(const RunningApp& app, const char* what, bool mayAsk, int& passes) {
    bool gone = false;
    std::int64_t passedMs = base_.clock.TickMs();
    const auto done = [&] {
        gone = !collection_.AppHasWindow(app.PID);
        if (gone || (mayAsk && Asks(app))) return true;
        if (const std::int64_t now = base_.clock.TickMs(); now - passedMs >= PassMs) {
            passedMs = now;
            ++passes;
        }
        return passes >= Passes;
    };
    base_.pump.Until({what, done, Passes * PassMs, PassMs});
    return gone;
}

bool Closing::Close(RunningApp& app, bool mayAsk) {
    int passes = 0;
    collection_.CollectAppWindows(app);
    windows_.Close(app.hWnd);
    if (WindowsGone(app, "a program that closes", mayAsk, passes)) return true;
    if (mayAsk && Asks(app)) return false;
    base_.log.WriteDebugLog("app still not closed at: " + std::to_string(passes));
    collection_.CollectAppWindows(app);
    for (const WindowHandle window : app.hWndList) {
        base_.log.WriteDebugLog("closing hWnd: " + std::to_string(window));
        windows_.Close(window);
    }
    passes = 0;
    if (WindowsGone(app, "a program's windows that close", false, passes)) return true;
    base_.log.WriteDebugLog("attempting to kill PID " + std::to_string(app.PID));
    programs_.KillAll(app.PID);
    return true;
}

// True when all have ended in that time, with all that they have started.
bool Closing::AllEnd(const RunningApps& apps, int milliseconds) const {
    const std::int64_t end = base_.clock.TickMs() + milliseconds;
    const auto ended = [&] {
        return std::ranges::none_of(
            apps, [&](const RunningApp& app) { return programs_.AnyRunning(app.PID); });
    };
    while (!ended()) {
        if (base_.clock.TickMs() >= end) return false;
        base_.clock.Sleep(PassMs);
    }
    return true;
}

void Closing::AskWindows(const RunningApps& apps) const {
    for (const RunningApp& app : apps)
        for (const ForeignWindow& window : collection_.Of(app.PID))
            windows_.Close(window.handle);
}

void Closing::AskPrograms(const RunningApps& apps) const {
    for (const RunningApp& app : apps)
        programs_.Close(app.PID);
}

void Closing::KillWhatRuns(const RunningApps& apps) const {
    for (const RunningApp& app : apps) {
        if (!programs_.AnyRunning(app.PID)) continue;
        base_.log.WriteDebugLog("attempting to kill PID " + std::to_string(app.PID));
        programs_.KillAll(app.PID);
    }
}

void Closing::CloseAll(const RunningApps& apps) {
    AskWindows(apps);
    if (AllEnd(apps, LastMs)) return;
    AskPrograms(apps);
    if (AllEnd(apps, AskedMs)) return;
    KillWhatRuns(apps);
}

void Closing::CloseBehind(const RunningApps& apps) {
    AskWindows(apps);
    behind_ = apps;
    later_->Start(LastMs);
}

void Closing::NextBehind() {
    later_->Stop();
    KillWhatRuns(std::exchange(askedBehind_, {}));
    if (behind_.empty()) return;
    AskPrograms(behind_);
    askedBehind_ = std::exchange(behind_, {});
    later_->Start(AskedMs);
}

} // namespace vk
