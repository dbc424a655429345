// What the browser leaves for the movie player.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// One object a process, handed by reference.
struct VideoState {
    bool PlayDVD = false;           ///< the disc in the drive is played, not a list
    std::string ListFile;           ///< full path of the list of films
    std::int32_t MovieToSelect = 1; ///< one-based entry to begin with
    std::int32_t VolumeSerial = 0;  ///< disc that holds the films; 0: no disc
};

} // namespace vk
