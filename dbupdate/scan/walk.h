// The files of the media folder.
#pragma once

#include "library/tags/media_type.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// A media file, when it was walked over; small, as there can be very many.
struct FoundFile {
    std::int64_t date;    ///< last written, seconds since 1970
    std::uint32_t folder; ///< its index in the folders of `FoundFiles`
    std::uint32_t name;   ///< where its name begins in the names of `FoundFiles`
    std::uint16_t nameLength;
    std::uint8_t mediaType;
    bool plain; ///< its path is its key, and no other file's
};

/// What a walk found. An exception tells that the media folder itself did not answer.
struct FoundFiles {
    std::vector<FoundFile> files;
    std::vector<std::string> folders; ///< below the media folder, a separator at either end
    std::string names;                ///< of the files, one after the other
    /// Keys of files, and of folders with a separator at their end, that are there but could not be
    /// looked at: nothing is known of what is behind them.
    std::vector<std::string> unread;
    /// Keys, with a separator at their end, of folders on another volume than the folder that their
    /// name is in: mounted drives, and links that lead to one. One that went away during the walk
    /// counts as unread as a whole.
    std::vector<std::string> drives;
    bool stopped = false;

    /// Below the media folder, with a separator in front.
    std::string Path(const FoundFile& file) const;
    /// The path as the catalogue has it.
    std::string Key(const FoundFile& file) const;
    /// Whether it is the path of a file.
    bool IsPath(const FoundFile& file, std::string_view path) const;
};

/// Walks the folder `root` with all folders below it, links followed, each real folder once, a
/// folder's files in the order of paths. Takes what `types` has in its extension lists, playlists
/// and preset lists. `tell` (optional) hears after each folder how many files there are so far.
/// Throws an `Error` when the folder is missing or cannot be read, or is another one at the end
/// than at the beginning.
FoundFiles WalkMedia(const std::string& root, const MediaExtensions& types,
                     const std::atomic<bool>& stop,
                     const std::function<void(std::int64_t)>& tell = {});

} // namespace vk
