#include "hosting/app_windows.h"

#include <algorithm>
#include <string>

namespace vk {

namespace {

bool Covers(const WindowArea& window, const WindowArea& frame) {
    return window.x <= frame.x && window.y <= frame.y &&
           window.x + window.width >= frame.x + frame.width &&
           window.y + window.height >= frame.y + frame.height;
}

// 0 when there is none at all.
WindowHandle MainOf(const std::vector<ForeignWindow>& windows) {
    const auto ordinary = std::find_if(windows.rbegin(), windows.rend(),
                                       [](const ForeignWindow& each) { return each.ordinary; });
    if (ordinary != windows.rend()) return ordinary->handle;
    return windows.empty() ? 0 : windows.back().handle;
}

} // namespace

std::vector<ForeignWindow> AppWindows::Of(ProgramId program) const {
    std::vector<ForeignWindow> all = windows_.List();
    std::erase_if(all, [&](const ForeignWindow& window) {
        return !window.visible || !programs_.IsOf(window.program, program);
    });
    return all;
}

int AppWindows::CollectAppWindows(RunningApp& app) const {
    const std::vector<ForeignWindow> all = Of(app.PID);
    app.hWndList.clear();
    for (const ForeignWindow& window : all)
        app.hWndList.push_back(window.handle);
    if (std::ranges::count(app.hWndList, app.hWnd) == 0) app.hWnd = MainOf(all);
    return static_cast<int>(all.size());
}

void AppWindows::Frame(RunningApp& app) const {
    if (!app.bMaximize) return;
    for (const ForeignWindow& window : Of(app.PID)) {
        if (!window.ordinary || std::ranges::count(app.framed, window.handle) > 0) continue;
        app.framed.push_back(window.handle);
        windows_.SetFrame(window.handle, false);
        windows_.Place(window.handle, Whole());
        if (base_.settings.values.AppSize == 0) windows_.Maximize(window.handle);
    }
}

void AppWindows::ForceMaximize(RunningApp& app) const {
    if (!app.bForceMax) return;
    for (const ForeignWindow& window : Of(app.PID)) {
        if (window.handle != app.hWnd || Covers(window.area, Whole()) || window.area == app.forced)
            continue;
        base_.log.WriteDebugLog("attempting to maximize hWnd " + std::to_string(app.hWnd));
        app.forced = window.area;
        windows_.Place(app.hWnd, Whole());
    }
}

void AppWindows::ComeToFront(const RunningApp& app) const {
    for (const WindowHandle window : app.hWndList) {
        windows_.SetTopmost(window, true);
        windows_.Raise(window);
    }
    if (app.hWnd == 0) return;
    windows_.Focus(app.hWndList.empty() ? app.hWnd : app.hWndList.back());
}

void AppWindows::LetOthersOver(const RunningApp& app) const {
    for (const WindowHandle window : app.hWndList) {
        windows_.SetTopmost(window, false);
        windows_.FreeInput(window);
    }
}

} // namespace vk
