// The files of the media folder.
#pragma once

#include "core/app_state.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// A media file, when it was walked over.
struct FoundFile {
    std::string path;  ///< below the media folder, with a separator in front
    std::string key;   ///< the path as the catalogue has it; empty when that is no different
    std::int64_t date; ///< last written, seconds since 1970
    int mediaType;

    const std::string& Key() const { return key.empty() ? path : key; }
};

/// What a walk found. An exception tells that the media folder itself did not answer.
struct FoundFiles {
    std::vector<FoundFile> files;
    /// Keys of files, and of folders with a separator at their end, that are there but could not be
    /// looked at: nothing is known of what is behind them.
    std::vector<std::string> unread;
    /// Keys, with a separator at their end, of folders on another volume than the folder that their
    /// name is in: mounted drives, and links that lead to one.
    std::vector<std::string> drives;
    bool stopped = false;
};

/// Walks the folder `root` with all folders below it, links followed, each real folder once. Takes
/// what `types` has in its extension lists, playlists and preset lists. Throws an `Error` when the
/// folder is missing or cannot be read, or is another one at the end than at the beginning.
FoundFiles WalkMedia(const std::string& root, const AppState& types, const std::atomic<bool>& stop);

} // namespace vk
