// How start-up makes the screens, and which of them this system has.
#pragma once

#include <functional>

namespace vk {

/// Each makes one screen and registers it, without showing it; an empty one is a screen that is not
/// there. They run in the order of the members.
struct ScreenLoader {
    std::function<void()> velkorandum, playlists, playmovie, playmp3, frmGPS, frmXMCtl;
    std::function<void()> settings;       ///< made when it is first wanted, shown by its ReShow
    std::function<void()> unloadSettings; ///< removes it again
    std::function<void()> unloadScreens;  ///< removes the first six
};

} // namespace vk
