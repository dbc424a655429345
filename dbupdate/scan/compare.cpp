#include "dbupdate/scan/compare.h"

#include "library/catalogue/date_stamp.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace vk {

namespace {

struct File {
    const FoundFile* file;
    bool same = false; ///< its row has its date
};
using FilesByKey = std::unordered_map<std::string_view, File>;

/// Two names can have one key, as one of them holds a double quote; the other is the one that is
/// read back from the key.
FilesByKey ByKey(const std::vector<FoundFile>& files) {
    FilesByKey byKey;
    byKey.reserve(files.size());
    for (const FoundFile& file : files) {
        const auto [at, added] = byKey.try_emplace(file.Key(), File{&file});
        const bool better = file.path.find('"') == std::string::npos;
        if (!added && better) at->second.file = &file;
    }
    return byKey;
}

bool Unknown(const std::vector<std::string>& unread, std::string_view key) {
    return std::ranges::any_of(unread, [&](const std::string& place) {
        return place.ends_with('/') ? key.starts_with(place) : key == place;
    });
}

} // namespace

Changes CompareWithRows(const FoundFiles& found, Database* catalogue) {
    Changes changes;
    FilesByKey files = ByKey(found.files);
    if (catalogue) {
        Statement rows(*catalogue, "SELECT Path, TStamp FROM Media");
        for (; rows.Step(); ++changes.rows) {
            const std::string_view key = rows.Text(0);
            const auto file = files.find(key);
            if (file != files.end())
                file->second.same = rows.Text(1) == DateStamp(file->second.file->date);
            else if (!Unknown(found.unread, key))
                changes.gone.emplace_back(key);
        }
    }
    for (const FoundFile& file : found.files) {
        const File& known = files.at(file.Key());
        if (known.file == &file && !known.same) changes.toRead.push_back(&file);
    }
    return changes;
}

} // namespace vk
