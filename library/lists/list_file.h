// Playlist files (.m3u): one path a line, written by many programs on many systems.
#pragma once

#include "library/lists/entry_resolver.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Bytes of a list that are read; a longer file is no list.
inline constexpr std::size_t ListFileLimit = 128u << 20;

/// The whole of a list file. Throws `Error` when it cannot be read or is longer than that.
std::string ReadListText(const std::string& path);

/// Takes a line; false ends the walk.
using LineVisitor = std::function<bool(const std::string& line)>;

/// Goes through the lines of a text in UTF-8, Windows-1252 or UTF-16 (which is turned into UTF-8):
/// ended by LF, CR LF or CR, without a byte order mark; blanks around a line and empty lines are
/// dropped. False when `visit` ended the walk.
bool ForEachListLine(std::string_view contents, const LineVisitor& visit);

/// All those lines, for short texts.
std::vector<std::string> ListLines(std::string_view contents);

/// True when an entry can be a line of a list: line ends would make two lines of it, a NUL would
/// cut it.
bool FitsListLine(std::string_view entry);

/// Replaces a list in one step: `comment` (if any) after "# ", then the entries, byte for byte.
/// False, with the old file as it was and the cause in `reason` (optional), when it could not be
/// written or an entry fits no line.
bool WriteListFile(const std::string& path, const std::string& comment,
                   const std::vector<std::string>& entries, std::string* reason = nullptr);

} // namespace vk
