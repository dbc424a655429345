// Playlist files (.m3u): one path a line, written by many programs on many systems.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The lines of a text: ended by LF, CR LF or CR, without a byte order mark; blanks around a line
/// and empty lines are dropped.
std::vector<std::string> ListLines(std::string_view contents);

/// The existing file that a line of the list in `folder` names, "" when there is none. It is tried
/// as it stands, in UTF-8 when it was written in Windows-1252, and with "\" for the separator; a
/// name that is not found as it stands counts from `folder`.
std::string ResolveListEntry(const std::string& line, const std::string& folder);

/// The existing files that a playlist names, in its order; comments and missing files are left out.
/// An unreadable list gives none.
std::vector<std::string> ReadListFile(const std::string& path);

/// The lines of a play list that is written for the players: `comment` (if any) after "# ", then
/// the paths. False when the file could not be written.
bool WriteListFile(const std::string& path, const std::string& comment,
                   const std::vector<std::string>& entries);

} // namespace vk
