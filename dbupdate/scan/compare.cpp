#include "dbupdate/scan/compare.h"

#include "library/catalogue/date_stamp.h"
#include "platform/paths.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace vk {

namespace {

/// Finds files by their keys. Rows were written in the order of an earlier walk, so that as a rule
/// the next row is that of the next file.
class FilesByKey {
  public:
    explicit FilesByKey(const std::vector<FoundFile>& files) : files_(files) {}

    /// The index of the file that a row is for; nothing when there is none.
    std::optional<std::size_t> Find(std::string_view key) {
        if (next_ < files_.size() && IsPlain(files_[next_]) && files_[next_].path == key)
            return next_++;
        const auto found = Map().find(key);
        if (found == Map().end()) return std::nullopt;
        next_ = found->second + 1;
        return found->second;
    }

    /// False for a file whose row is another one's.
    bool HasRow(std::size_t index) {
        const FoundFile& file = files_[index];
        return IsPlain(file) || Map().at(file.Key()) == index;
    }

  private:
    /// Whether no other file can have its key.
    static bool IsPlain(const FoundFile& file) {
        return file.key.empty() && file.path.find('"') == std::string::npos;
    }

    /// Two names can have one key, as one of them holds a double quote; the other is the one that
    /// is read back from the key.
    const std::unordered_map<std::string_view, std::size_t>& Map() {
        if (!map_.empty()) return map_;
        map_.reserve(files_.size());
        for (std::size_t i = 0; i < files_.size(); ++i) {
            const auto [at, added] = map_.try_emplace(files_[i].Key(), i);
            const bool better = files_[i].path.find('"') == std::string::npos;
            if (!added && better) at->second = i;
        }
        return map_;
    }

    const std::vector<FoundFile>& files_;
    std::size_t next_ = 0;
    std::unordered_map<std::string_view, std::size_t> map_; ///< empty until it is needed
};

/// The places that nothing is known of.
class Unknown {
  public:
    Unknown(const std::vector<std::string>& unread, const std::vector<std::string>& unplugged)
        : places_(unread.begin(), unread.end()) {
        places_.insert(unplugged.begin(), unplugged.end());
    }

    /// Whether the file or a folder above it is such a place.
    bool Holds(std::string_view key) const {
        if (places_.empty()) return false;
        if (places_.contains(key)) return true;
        for (auto end = key.find(PathSeparator); end != key.npos;
             end = key.find(PathSeparator, end + 1))
            if (places_.contains(key.substr(0, end + 1))) return true;
        return false;
    }

  private:
    std::unordered_set<std::string_view> places_;
};

/// The drives that rows lay on the last time, in order.
std::vector<std::string> DrivesOf(Database& catalogue) {
    std::vector<std::string> drives;
    Statement stored(catalogue, "SELECT Path FROM Drives");
    while (stored.Step())
        drives.emplace_back(stored.Text(0));
    std::ranges::sort(drives);
    return drives;
}

bool HoldsFiles(const FoundFiles& found, const std::string& folder) {
    return std::ranges::any_of(
        found.files, [&](const FoundFile& file) { return file.Key().starts_with(folder); });
}

/// Which of these are not mounted now.
std::vector<std::string> Unplugged(const std::vector<std::string>& drives,
                                   const FoundFiles& found) {
    std::vector<std::string> unplugged;
    std::ranges::copy_if(drives, std::back_inserter(unplugged), [&](const std::string& drive) {
        return std::ranges::find(found.drives, drive) == found.drives.end() &&
               !HoldsFiles(found, drive);
    });
    return unplugged;
}

} // namespace

Changes CompareWithRows(const FoundFiles& found, Database* catalogue) {
    Changes changes;
    FilesByKey files(found.files);
    const auto known = catalogue ? DrivesOf(*catalogue) : std::vector<std::string>();
    changes.drives = Unplugged(known, found);
    const Unknown unknown(found.unread, changes.drives);
    std::vector<bool> same(found.files.size());
    if (catalogue) {
        Statement rows(*catalogue, "SELECT Path, TStamp FROM Media ORDER BY rowid");
        for (; rows.Step(); ++changes.rows) {
            const std::string_view key = rows.Text(0);
            if (const auto file = files.Find(key))
                same[*file] = rows.Text(1) == DateStamp(found.files[*file].date);
            else if (!unknown.Holds(key))
                changes.gone.emplace_back(key);
        }
    }
    for (std::size_t i = 0; i < same.size(); ++i)
        if (!same[i] && files.HasRow(i)) changes.toRead.push_back(&found.files[i]);
    std::ranges::copy_if(found.drives, std::back_inserter(changes.drives),
                         [&](const std::string& drive) { return HoldsFiles(found, drive); });
    std::ranges::sort(changes.drives);
    changes.otherDrives = changes.drives != known;
    return changes;
}

} // namespace vk
