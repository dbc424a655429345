// What there is to copy: the folders and files of a source tree, without what is left out.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

struct FileFacts {
    std::uint64_t length = 0; ///< bytes
    std::int64_t written = 0; ///< seconds since 1970
};

/// A file as the listing of its folder reported it.
struct SourceFile : FileFacts {
    std::string name;
};

struct SourceFolder {
    std::string path; ///< below the source's root, with a separator in front; "" for the root
    std::vector<SourceFile> files;
};

/// What a walk tells.
struct WalkListener {
    /// Asked for each entry of a folder; false ends the walk.
    std::function<bool(const std::string& folder, std::string_view name)> entry;
    /// What is left out and why, for the log.
    std::function<void(const std::string& line)> leftOut;
};

/// The folders below `source`, each before those in it. A folder that holds an entry named
/// vk_do_not_copy, whatever its ending, is left out with all below it; so are `except` (the
/// destination may lie within the source), a folder that a link leads back to, and what the
/// platform keeps for itself. Nothing when the listener ended the walk.
std::optional<std::vector<SourceFolder>>
WalkSource(const std::string& source, const std::string& except, const WalkListener& listener);

} // namespace vk
