// What the browser and the menu leave for the movie player.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// The list of films of the last run, in the application directory.
inline constexpr const char* VideoListName = "vk_video.m3u";

/// One object a process, handed by reference.
struct VideoState {
    bool PlayDVD = false;           ///< the disc in the drive is played, not a list
    std::string ListFile;           ///< full path of the list of films
    std::int32_t MovieToSelect = 1; ///< one-based entry to begin with
    std::int32_t VolumeSerial = 0;  ///< disc that holds the films; 0: no disc
    bool FromBrowser = false;       ///< chosen there: a list that ends leads back to its row
};

} // namespace vk
