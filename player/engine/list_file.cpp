#include "player/engine/list_file.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <functional>

namespace vk {

namespace {

constexpr std::size_t ListFileLimit = 64u << 20;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

bool IsAddress(std::string_view entry) {
    return entry.find("://") != std::string_view::npos;
}

// The screen lists a track of an audio disc unseen; left out here it would shift all numbers.
bool IsDiscTrack(const std::string& entry) {
    return EqualNoCase(LastBytes(entry, 4), ".cda");
}

std::string Resolve(std::string_view entry, const std::string& folder) {
    const bool whole = entry.front() == PathSeparator || IsAddress(entry);
    return whole ? std::string(entry) : JoinPath(folder, std::string(entry));
}

// Calls `take` with each line that is not empty until it answers false.
void ForEachLine(std::string_view contents, const std::function<bool(std::string_view)>& take) {
    if (contents.starts_with(ByteOrderMark)) contents.remove_prefix(ByteOrderMark.size());
    while (!contents.empty()) {
        // A NUL can stand in no path: it ends a line like the others.
        const auto end = contents.find_first_of(std::string_view("\r\n\0", 3));
        const auto line = contents.substr(0, end);
        if (!line.empty() && !take(line)) return;
        if (end == std::string_view::npos) return;
        contents.remove_prefix(end + 1);
    }
}

std::vector<std::string> EntriesOf(const std::string& path) {
    const std::string extension = ToLower(ExtensionOf(path));
    const bool m3u = extension == "m3u" || extension == "m3u8";
    if (!m3u && extension != "pls") return {path};
    const std::string contents = ReadWholeFile(path, ListFileLimit).value_or("");
    return m3u ? ParseM3u(contents, FolderOf(path)) : ParsePls(contents, FolderOf(path));
}

} // namespace

std::vector<std::string> ParseM3u(std::string_view contents, const std::string& folder) {
    std::vector<std::string> entries;
    ForEachLine(contents, [&](std::string_view line) {
        if (line.front() != '#') entries.push_back(Resolve(line, folder));
        return entries.size() < ListEntryLimit;
    });
    return entries;
}

std::vector<std::string> ParsePls(std::string_view contents, const std::string& folder) {
    std::vector<std::string> entries;
    ForEachLine(contents, [&](std::string_view line) {
        const auto equals = line.find('=');
        if (equals == std::string_view::npos || !StartsWithNoCase(line, "file")) return true;
        const std::string value = Trim(line.substr(equals + 1));
        if (!value.empty()) entries.push_back(Resolve(value, folder));
        return entries.size() < ListEntryLimit;
    });
    return entries;
}

std::vector<std::string> ListEntries(const std::string& path) {
    std::vector<std::string> entries = EntriesOf(path);
    std::erase_if(entries, [](const std::string& entry) {
        return !IsAddress(entry) && !IsDiscTrack(entry) && !FileExists(entry);
    });
    return entries;
}

} // namespace vk
