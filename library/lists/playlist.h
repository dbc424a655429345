// Playlists of all kinds as their lines stand, so that editing one loses nothing of it: .m3u and
// .m3u8 (https://en.wikipedia.org/wiki/M3U), .pls (https://en.wikipedia.org/wiki/PLS_(file_format))
// and lists of channels.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// A line of a playlist.
struct PlaylistLine {
    std::string text;              ///< as it is written; of a .pls the name of the entry
    bool comment = false;          ///< begins with "#"; a file may have such a name, too
    std::string title{}, length{}; ///< of an entry of a .pls
};

/// What a playlist file says.
struct Playlist {
    bool pls = false;
    bool mark = false; ///< a byte order mark stood at its beginning
    std::vector<PlaylistLine> lines;
};

/// Reads the text of any playlist; what kind it is is told by its first line.
Playlist ParsePlaylist(std::string_view contents);

/// The text of a file, every line ended by CR LF. Texts that were in UTF-16 are in UTF-8.
std::string PlaylistText(const Playlist& playlist);

/// Where a playlist was and is to be; both full paths, "" for none.
struct PlaylistMove {
    std::string from, to;
};

/// The playlist with its entries taken out but those of `entries`, which begins with some of
/// `found` in their order; what is new there follows at the end. `found` has what each line was
/// found to mean, "" for lines that stay where they stand, whatever they are. The line of an entry
/// that goes takes the "#EXTINF" before it along. Saved in another folder, names count from there;
/// saved as another kind, titles are kept in that kind's way.
Playlist WithEntries(const Playlist& old, const std::vector<std::string>& found,
                     const std::vector<std::string>& entries, const PlaylistMove& move);

} // namespace vk
