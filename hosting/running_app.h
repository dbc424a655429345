// A program that was started here and goes on beside the system.
#pragma once

#include "platform/foreign_windows.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// A record of `RunningApps`.
struct RunningApp {
    ProgramId PID = 0;
    WindowHandle hWnd = 0;                   ///< its main window, 0 while it has none
    std::vector<WindowHandle> hWndList = {}; ///< all its windows, the front one last
    bool bForceMax = false;
    std::string name = {}; ///< as it is shown
    bool bMaximize = false;

    std::vector<WindowHandle> framed = {}; ///< those that have been given the system's frame
    WindowArea forced = {};                ///< what the main window had when it was last forced
    std::int64_t windowlessSinceMs = 0;    ///< of the clock's ticks; 0 while it has a window
    bool ended = false;                    ///< by the user, who wants no more of it
};

using RunningApps = std::vector<RunningApp>;

} // namespace vk
