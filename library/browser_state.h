// What a caller sets before it enters the media browser.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// The browser's modes.
enum ListModeValue : std::int16_t {
    ListFromMenu = 1,
    ListFromAudio = 2,
    ListFromVideo = 3,
    ListBuild = 4,
    ListApplications = 5
};

/// One object a process, handed by reference.
struct BrowserState {
    std::int16_t ListMode = ListFromMenu;
    std::string CurrentPath;     ///< a folder, without a trailing separator unless it is a root
    bool RestoreHistory = false; ///< the next list is walked back to where the user last was
    bool FromPlayer = false;     ///< entered by the player's Swap: Escape goes back to it
    bool FromMovie = false;      ///< the same of the movie player
    std::string Played;          ///< the film whose row is to be selected; "": what was chosen last
};

} // namespace vk
