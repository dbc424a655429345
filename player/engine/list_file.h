// List files as the player takes them. Paths are bytes as the file system has them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The most entries that one list gives; the rest is left out.
inline constexpr std::size_t ListEntryLimit = 1000000;

/// The entries of an .m3u or .m3u8 (https://en.wikipedia.org/wiki/M3U): lines whose file is found
/// from `folder` by the same rules as the screens', so that both number the list alike; addresses
/// ("http://...") and ".cda" lines stay.
std::vector<std::string> M3uEntries(std::string_view contents, const std::string& folder);

/// The same for a .pls: the values of File1, File2... in the order of their lines
/// (https://en.wikipedia.org/wiki/PLS_(file_format)).
std::vector<std::string> PlsEntries(std::string_view contents, const std::string& folder);

/// What a file given to the player stands for: the entries of a list, or the file itself if it is
/// there.
std::vector<std::string> ListEntries(const std::string& path);

} // namespace vk
