#include "library/lists/playlist.h"

#include "core/text.h"
#include "core/utf16.h"
#include "library/lists/entry_resolver.h"
#include "library/lists/list_file.h"
#include "platform/paths.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <utility>

namespace vk {

namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view Info = "#EXTINF:";

bool IsPls(const std::string& path) {
    return EqualNoCase(ExtensionOf(path), "pls");
}

/// Puts the entries of a .pls together from its keys, in the order of the files.
class PlsReader {
  public:
    void Take(const std::string& line, std::vector<PlaylistLine>& lines) {
        const auto equals = line.find('=');
        const std::string key = line.substr(0, equals);
        const auto digits =
            std::ranges::find_if(key, [](unsigned char c) { return std::isdigit(c); });
        const std::string number(digits, key.end());
        const std::string name = ToLower(std::string(key.begin(), digits));
        if (equals == std::string::npos || number.empty()) {
            // The header and the count are made anew.
            if (line.starts_with(';') || line.starts_with('#')) lines.push_back({line, true});
            return;
        }
        const std::string value = Trim(line.substr(equals + 1));
        if (name == "file") {
            places_[number] = lines.size();
            lines.push_back({value});
        } else if (const auto place = places_.find(number); place != places_.end()) {
            if (name == "title") lines[place->second].title = value;
            if (name == "length") lines[place->second].length = value;
        }
    }

  private:
    std::map<std::string, std::size_t> places_; ///< of entries, by their numbers
};

std::string PlsText(const Playlist& playlist) {
    std::string text = "[playlist]\r\n";
    int number = 0;
    for (const PlaylistLine& line : playlist.lines) {
        if (line.comment) {
            text.append(line.text).append(LineEnd);
            continue;
        }
        const std::string suffix = std::to_string(++number) + "=";
        text.append("File").append(suffix).append(line.text).append(LineEnd);
        if (!line.title.empty())
            text.append("Title").append(suffix).append(line.title).append(LineEnd);
        if (!line.length.empty())
            text.append("Length").append(suffix).append(line.length).append(LineEnd);
    }
    return text + "NumberOfEntries=" + std::to_string(number) + "\r\nVersion=2\r\n";
}

/// Carries lines over into the playlist as it is to be.
class Carrier {
  public:
    Carrier(const Playlist& old, const PlaylistMove& move)
        : folder_(FolderOf(move.from)), moved_(folder_ != FolderOf(move.to)),
          unfold_(old.pls && !IsPls(move.to)) {
        result.pls = IsPls(move.to);
        result.mark = old.mark;
    }

    /// `file`: what an entry was found to mean, "" for a line that nothing was found for.
    void Keep(PlaylistLine line, const std::string& file) {
        const bool counts = !line.comment && !IsAbsolutePath(line.text) &&
                            !IsStreamAddress(line.text) && !StartsWithNoCase(line.text, "file:");
        if (moved_ && counts) line.text = file.empty() ? JoinPath(folder_, line.text) : file;
        if (unfold_ && !line.title.empty())
            result.lines.push_back(
                {std::string(Info) + (line.length.empty() ? "-1" : line.length) + "," + line.title,
                 true});
        result.lines.push_back(std::move(line));
    }
    /// The entry after the last line is taken out.
    void Drop() {
        const bool info = !result.lines.empty() && result.lines.back().comment &&
                          result.lines.back().text.starts_with(Info);
        if (info) result.lines.pop_back();
    }

    Playlist result;

  private:
    const std::string folder_;
    const bool moved_, unfold_;
};

} // namespace

Playlist ParsePlaylist(std::string_view contents) {
    Playlist playlist;
    playlist.mark = contents.starts_with("\xEF\xBB\xBF") || Utf16OrderOf(contents);
    PlsReader reader;
    bool first = true;
    ForEachListLine(contents, [&](const std::string& line) {
        if (std::exchange(first, false) && EqualNoCase(line, "[playlist]"))
            playlist.pls = true;
        else if (playlist.pls)
            reader.Take(line, playlist.lines);
        else
            playlist.lines.push_back({line, line.starts_with('#')});
        return true;
    });
    return playlist;
}

std::string PlaylistText(const Playlist& playlist) {
    std::string text = playlist.mark ? "\xEF\xBB\xBF" : "";
    if (playlist.pls) return text + PlsText(playlist);
    for (const PlaylistLine& line : playlist.lines)
        text.append(line.text).append(LineEnd);
    return text;
}

Playlist WithEntries(const Playlist& old, const std::vector<std::string>& found,
                     const std::vector<std::string>& entries, const PlaylistMove& move) {
    Carrier carrier(old, move);
    std::size_t next = 0;
    for (std::size_t i = 0; i < old.lines.size(); ++i) {
        if (found[i].empty()) {
            carrier.Keep(old.lines[i], "");
        } else if (next < entries.size() && found[i] == entries[next]) {
            carrier.Keep(old.lines[i], found[i]);
            ++next;
        } else {
            carrier.Drop();
        }
    }
    for (; next < entries.size(); ++next)
        carrier.result.lines.push_back({entries[next]});
    return std::move(carrier.result);
}

} // namespace vk
