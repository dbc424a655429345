// List files as the player takes them. Paths are bytes as the file system has them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The most entries that one list gives; the rest is left out.
inline constexpr std::size_t ListEntryLimit = 100000;

/// The entries of an .m3u or .m3u8: one a line, line ends CR LF, LF or CR, a byte order mark
/// skipped, lines that begin with "#" and empty ones left out; relative paths start at `folder`
/// (https://en.wikipedia.org/wiki/M3U).
std::vector<std::string> ParseM3u(std::string_view contents, const std::string& folder);

/// The entries of a .pls: the values of File1, File2… in the order of their lines
/// (https://en.wikipedia.org/wiki/PLS_(file_format)).
std::vector<std::string> ParsePls(std::string_view contents, const std::string& folder);

/// What a file given to the player stands for: the entries of a list, or the file itself. Entries
/// whose file is missing are left out, as the screens leave them out, so that both number the list
/// alike; addresses ("http://…") and ".cda" lines stay.
std::vector<std::string> ListEntries(const std::string& path);

} // namespace vk
