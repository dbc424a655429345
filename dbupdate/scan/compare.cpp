#include "dbupdate/scan/compare.h"

#include "library/catalogue/date_stamp.h"
#include "library/queries/sql_text.h"
#include "platform/paths.h"

#include <algorithm>
#include <functional>
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
    explicit FilesByKey(const FoundFiles& found) : found_(found) {}

    /// The index of the file that a row is for; nothing when there is none.
    std::optional<std::size_t> Find(std::string_view key) {
        const bool next = next_ < found_.files.size() && found_.files[next_].plain &&
                          found_.IsPath(found_.files[next_], key);
        const auto file = next ? std::optional(next_) : Search(key);
        if (file) next_ = *file + 1;
        return file;
    }

    /// False for a file whose row is another one's.
    bool HasRow(std::size_t index) {
        const FoundFile& file = found_.files[index];
        return file.plain || Search(found_.Key(file)) == index;
    }

  private:
    struct Entry {
        std::size_t hash;
        std::uint32_t index;
        // NOLINTNEXTLINE(modernize-use-nullptr): mistaken for a null pointer
        auto operator<=>(const Entry&) const = default;
    };

    static std::size_t Hash(std::string_view key) { return std::hash<std::string_view>()(key); }

    void Sort() {
        sorted_.reserve(found_.files.size());
        for (const FoundFile& file : found_.files)
            sorted_.push_back({Hash(found_.Key(file)), static_cast<std::uint32_t>(sorted_.size())});
        std::ranges::sort(sorted_);
    }

    /// Two names can have one key, as one of them holds a double quote; the other is the one that
    /// is read back from the key.
    std::optional<std::size_t> Search(std::string_view key) {
        if (sorted_.empty()) Sort();
        std::optional<std::size_t> found;
        const std::size_t hash = Hash(key);
        auto entry = std::ranges::lower_bound(sorted_, hash, {}, &Entry::hash);
        for (; entry != sorted_.end() && entry->hash == hash; ++entry) {
            const std::string path = found_.Path(found_.files[entry->index]);
            if (Escape(path) != key) continue;
            if (!found || path.find('"') == std::string::npos) found = entry->index;
        }
        return found;
    }

    const FoundFiles& found_;
    std::size_t next_ = 0;
    std::vector<Entry> sorted_; ///< all files; empty until it is needed
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
        found.folders, [&](const std::string& path) { return Escape(path).starts_with(folder); });
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
    FilesByKey files(found);
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
    std::ranges::copy_if(
        found.drives, std::back_inserter(changes.drives),
        [&](const std::string& drive) { return HoldsFiles(found, drive) || unknown.Holds(drive); });
    std::ranges::sort(changes.drives);
    changes.otherDrives = changes.drives != known;
    return changes;
}

} // namespace vk
