#include "playback/audio/favorites.h"

#include "core/error_report.h"
#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::size_t LongestList = 16u << 20; // bytes

std::string ReadList(const std::string& file) {
    if (!FileExists(file)) return {};
    // Read in part it would be written back in part.
    auto contents = ReadWholeFile(file, LongestList);
    if (!contents || contents->size() >= LongestList)
        throw Error(FileNameOf(file) + " cannot be read");
    return *std::move(contents);
}

bool IsThere(const std::string& line, const Favorite& favorite) {
    if (favorite.key.empty()) return line == favorite.entry;
    const auto number = ParseDecimal(Trim(line.substr(0, line.find(':'))));
    return number && number == ParseDecimal(favorite.key);
}

} // namespace

Favorite AudioFavorite(const std::string& path) {
    return {"favorites.m3u", path, {}};
}

Favorite XMFavorite(int channel) {
    return {"favorites.xcl", std::to_string(channel), {}};
}

Favorite FMFavorite(const std::string& frequency) {
    return {"presets.lst", frequency + ":" + frequency + " MHz", frequency};
}

bool AddFavorite(const std::string& folder, const Favorite& favorite) {
    // A name may hold line ends; a list cannot.
    if (favorite.entry.find_first_of("\r\n") != std::string::npos)
        throw Error("A name with a line end cannot be stored");
    const std::string file = JoinPath(folder, favorite.list);
    std::string contents = ReadList(file);
    const std::vector<std::string> lines = ListLines(contents);
    const auto same = [&](const std::string& line) { return IsThere(line, favorite); };
    if (std::any_of(lines.begin(), lines.end(), same)) return false;
    if (!contents.empty() && contents.back() != '\n') contents += "\r\n";
    std::string reason;
    if (!ReplaceFile(file, contents + favorite.entry + "\r\n", &reason))
        throw Error(favorite.list + " cannot be written: " + reason);
    return true;
}

} // namespace vk
