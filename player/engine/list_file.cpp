#include "player/engine/list_file.h"

#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

// The screen lists a track of an audio disc unseen; left out here it would shift all numbers.
bool IsDiscTrack(const std::string& entry) {
    return EqualNoCase(LastBytes(entry, 4), ".cda");
}

/// Takes lines as the screens do, up to the limit.
class Entries {
  public:
    explicit Entries(std::string folder) : folder_(std::move(folder)) {}
    /// False when there is room for no more.
    bool Add(const std::string& line) {
        std::string entry =
            IsStreamAddress(line) || IsDiscTrack(line) ? line : ResolveListEntry(line, folder_);
        if (!entry.empty()) list.push_back(std::move(entry));
        return list.size() < ListEntryLimit;
    }
    std::vector<std::string> list;

  private:
    const std::string folder_;
};

bool IsRemark(const std::string& line) {
    return line.starts_with("#EXT") || line.starts_with("# SELECT");
}

} // namespace

std::vector<std::string> M3uEntries(std::string_view contents, const std::string& folder) {
    Entries entries(folder);
    ForEachListLine(contents,
                    [&](const std::string& line) { return IsRemark(line) || entries.Add(line); });
    return std::move(entries.list);
}

std::vector<std::string> PlsEntries(std::string_view contents, const std::string& folder) {
    Entries entries(folder);
    ForEachListLine(contents, [&](const std::string& line) {
        const auto equals = line.find('=');
        if (equals == std::string::npos || !StartsWithNoCase(line, "file")) return true;
        const std::string value = Trim(line.substr(equals + 1));
        return value.empty() || entries.Add(value);
    });
    return std::move(entries.list);
}

std::vector<std::string> ListEntries(const std::string& path) {
    const std::string extension = ToLower(ExtensionOf(path));
    const bool m3u = extension == "m3u" || extension == "m3u8";
    if (!m3u && extension != "pls")
        return IsStreamAddress(path) || FileExists(path) ? std::vector{path}
                                                         : std::vector<std::string>();
    const std::string contents = ReadWholeFile(path, ListFileLimit).value_or("");
    return m3u ? M3uEntries(contents, FolderOf(path)) : PlsEntries(contents, FolderOf(path));
}

} // namespace vk
