// What the start, the supervisor and the way out ask of all subsystems together.
#pragma once

#include <functional>
#include <vector>

namespace vk {

/// One screen to be made. The texts only name the step in the code: the loading screen shows a bar.
struct LoadStep {
    /// Where the step stands among those of the start, and of a reload of the screens.
    struct Place {
        int start, reload;
    };
    Place place;
    const char* text;
    const char* reloadText;
    /// Makes the screen and registers it, without showing it; empty for one that this system does
    /// not have, whose step is counted all the same.
    std::function<void()> load = {};
};

struct Whole {
    std::function<std::vector<LoadStep>()> steps; ///< those that the settings ask for
    std::function<void()> unloadScreens;          ///< removes what they made
    std::function<void()> supervise;              ///< every tick of the supervisor
    /// The operating system ends the session: what the screen in front would lose is saved.
    std::function<void()> sessionEnds;
    std::function<void()> release; ///< lets programs and devices go, the last of all
    /// The settings have been read, the screens come next: what follows them but is no screen.
    std::function<void()> settingsRead = {};
};

} // namespace vk
