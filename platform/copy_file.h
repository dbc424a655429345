// Copying one file of any length, and the room that is left for it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace vk {

struct CopyOutcome {
    enum Kind { Done, Stopped, Failed };
    static constexpr const char* Changed = "it changes while it is copied";
    Kind kind = Failed;
    std::string reason; ///< of a failure, in the system's words
};

/// Told of each piece, in bytes; false stops the copying.
using CopyProgress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

/// What becomes of the copy of a file that is written to meanwhile.
enum class WhenChanged { Keep, Fail };

/// Copies a regular file in pieces with its times. What was at `to` stays until the copy is whole
/// and on the disk; of a copy that was stopped or has failed nothing is left. The copy can be
/// written to, whatever the file allowed. Its name is on the disk when the folder is flushed: once
/// for all copies in it.
CopyOutcome CopyInPieces(const std::string& from, const std::string& to,
                         const CopyProgress& progress, WhenChanged whenChanged = WhenChanged::Keep);

/// Bytes that this user may still write to the volume of `path`, which need not exist: the folder
/// above it that does counts. Nothing when that cannot be told.
std::optional<std::uint64_t> FreeSpace(const std::string& path);

} // namespace vk
