// Whether a file is still the one that was read, and whether it can be replaced.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// What changes with a file; all zero for one that is missing.
struct FileStamp {
    std::uint64_t node = 0, length = 0;
    std::int64_t written = 0, changed = 0; ///< in the file system's own units
    /// Old enough that the next change must show in the times, which tick coarsely.
    bool settled = false;

    bool SameAs(const FileStamp& other) const {
        return node == other.node && length == other.length && written == other.written &&
               changed == other.changed;
    }
};

/// The file's stamp, links followed.
FileStamp StampOf(const std::string& path);

/// Whether the folder of the file (of what it points to, when it is a link) takes new files.
bool CanReplace(const std::string& path);

} // namespace vk
