// The list of favourites of each source: one line an entry, added to while the music plays.
#pragma once

#include <string>

namespace vk {

/// A line for a list file of the application directory.
struct Favorite {
    std::string list;  ///< the file's name, "" when there is nothing to add
    std::string entry; ///< the line; bytes
    std::string key;   ///< the number before ":" by which an entry is known, "" for the whole line
};

/// A track's path, for favorites.m3u.
Favorite AudioFavorite(const std::string& path);
/// A channel, for favorites.xcl.
Favorite XMFavorite(int channel);
/// A frequency in MHz as it is shown ("96.50"), for presets.lst: "96.50:96.50 MHz". A preset of the
/// same frequency counts as the same entry, whatever it is called.
Favorite FMFavorite(const std::string& frequency);

/// Adds the line unless it is there; false when it was. The file is replaced in one step; throws,
/// and the file is as it was, when it can be neither read nor written.
bool AddFavorite(const std::string& folder, const Favorite& favorite);

} // namespace vk
