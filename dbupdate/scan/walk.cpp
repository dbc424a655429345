#include "dbupdate/scan/walk.h"

#include "core/error_report.h"
#include "library/catalogue/collation.h"
#include "library/queries/sql_text.h"
#include "library/tags/media_type.h"
#include "platform/folder_reader.h"
#include "platform/paths.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace vk {

namespace {

constexpr int PathError = 75; // "Path/File access error"

/// What is gone since its name was read is no failure.
bool IsGone(std::error_code error) {
    return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory ||
           error == std::errc::too_many_symbolic_link_levels;
}

class Walk {
  public:
    Walk(const std::string& root, const MediaExtensions& types, const std::atomic<bool>& stop,
         const std::function<void(std::int64_t)>& tell)
        : path_(root), types_(types), stop_(stop), tell_(tell), root_(root) {}

    FoundFiles Run() {
        if (root_.Error()) FailRoot(root_.Error().message());
        const FolderIdentity identity = root_.Identity();
        // Folders that are links come last: a folder is known by its own name where it has one.
        for (folders_ = {{"", identity.volume}}; !folders_.empty() || !links_.empty();) {
            if (folders_.empty()) folders_ = std::exchange(links_, {});
            const Pending folder = std::move(folders_.back());
            folders_.pop_back();
            const std::size_t files = found_.files.size(), folders = folders_.size();
            WalkFolder(folder);
            Sort(files, folders);
            if (tell_) tell_(static_cast<std::int64_t>(found_.files.size()));
            if (stop_) break;
        }
        for (const Drive& drive : drives_)
            CheckDrive(drive);
        found_.stopped = stop_;
        const FolderReader again(path_);
        if (again.Error()) FailRoot(again.Error().message());
        if (again.Identity() != identity) FailRoot("another folder has taken its place");
        return std::move(found_);
    }

  private:
    /// A folder to be walked.
    struct Pending {
        std::string path;
        std::uint64_t volume; ///< of the folder that its name is in
    };

    struct Drive {
        std::string path;
        std::uint64_t volume;
    };

    [[noreturn]] void FailRoot(const std::string& why) const {
        throw Error("The media folder " + path_ + " cannot be read: " + why, PathError);
    }

    void WalkFolder(const Pending& pending) {
        const std::string& path = pending.path;
        FolderReader folder(path.empty() ? path : path.substr(1), &root_);
        if (folder.Error()) return MissFolder(path, folder.Error());
        const FolderIdentity identity = folder.Identity();
        if (!walked_.insert(identity).second) return;
        if (identity.volume != pending.volume) {
            found_.drives.push_back(Escape(path + PathSeparator));
            drives_.push_back({path, identity.volume});
        }
        volume_ = identity.volume;
        folder_ = path;
        folderTaken_ = false;
        while (const auto entry = folder.Next()) {
            TakeEntry(folder, path, *entry);
            if (stop_) return;
        }
        if (folder.Error()) MissFolder(path, folder.Error());
    }

    /// A file system has no order of its own, and lists without another order show the walk's.
    void Sort(std::size_t firstFile, std::size_t firstFolder) {
        const auto begin = [](auto& all, std::size_t first) {
            return all.begin() + static_cast<std::ptrdiff_t>(first);
        };
        const auto name = [this](const FoundFile& file) {
            return std::string_view(found_.names).substr(file.name, file.nameLength);
        };
        const auto before = [](std::string_view a, std::string_view b) {
            return ComparePaths(a, b) < 0;
        };
        std::ranges::sort(begin(found_.files, firstFile), found_.files.end(), before, name);
        // The last one is walked first.
        if (firstFolder < folders_.size())
            std::ranges::sort(
                begin(folders_, firstFolder), folders_.end(),
                [&](const std::string& a, const std::string& b) { return before(b, a); },
                &Pending::path);
    }

    /// What was read of a drive before it went away is no reason to take the rest as deleted.
    void CheckDrive(const Drive& drive) {
        const FolderReader again(drive.path.substr(1), &root_);
        if (!again.Error() && again.Identity().volume == drive.volume) return;
        Miss(drive.path);
        std::erase_if(found_.files, [&](const FoundFile& file) {
            return found_.folders[file.folder].starts_with(drive.path + PathSeparator);
        });
    }

    void MissFolder(const std::string& folder, std::error_code error) {
        if (folder.empty()) FailRoot(error.message());
        if (!IsGone(error)) Miss(folder);
    }

    /// A file or a folder.
    void Miss(const std::string& path) {
        found_.unread.push_back(Escape(path));
        found_.unread.push_back(Escape(path + PathSeparator));
    }

    void TakeEntry(FolderReader& folder, const std::string& path,
                   const FolderReader::Entry& entry) {
        using Kind = FolderReader::Kind;
        if (IsSystemName(entry.name)) return;
        if (entry.kind == Kind::Folder) {
            folders_.push_back({Below(path, entry.name), volume_});
            return;
        }
        // A link or an entry of unknown kind may be a folder, whatever its name.
        const int type = TypeOf(entry.name);
        if (entry.kind == Kind::Other || (entry.kind == Kind::File && type == MediaUnknown)) return;
        const auto facts = folder.Look();
        if (!facts) {
            // A link to nowhere may lead to a drive that comes up later.
            if (!IsGone(folder.Error()) || entry.kind == Kind::Link) Miss(Below(path, entry.name));
        } else if (facts->isFolder) {
            auto& later = entry.kind == Kind::Link ? links_ : folders_;
            later.push_back({Below(path, entry.name), volume_});
        } else if (facts->isFile && type != MediaUnknown) {
            TakeFile(entry.name, facts->written, type);
        }
    }

    /// A name too short for a path of its own counts with the separator in front.
    int TypeOf(std::string_view name) {
        name_.assign(1, PathSeparator);
        name_ += name;
        return GetMediaType(types_, name_);
    }

    void TakeFile(std::string_view name, std::int64_t date, int type) {
        if (!folderTaken_) {
            found_.folders.push_back(folder_ + PathSeparator);
            folderPlain_ = IsPlain(folder_);
            folderTaken_ = true;
        }
        FoundFile& file = found_.files.emplace_back();
        file.date = date;
        file.folder = static_cast<std::uint32_t>(found_.folders.size() - 1);
        file.name = static_cast<std::uint32_t>(found_.names.size());
        file.nameLength = static_cast<std::uint16_t>(name.size());
        file.mediaType = static_cast<std::uint8_t>(type);
        file.plain = folderPlain_ && IsPlain(name);
        found_.names += name;
    }

    /// Neither changed by `Escape` nor what another path becomes by it; a path begins with a
    /// separator and ends with a known extension, so that there is nothing to trim.
    static bool IsPlain(std::string_view path) {
        return path.find_first_of("'\"") == std::string_view::npos;
    }

    static std::string Below(const std::string& folder, std::string_view name) {
        std::string path;
        path.reserve(folder.size() + 1 + name.size());
        return path.append(folder).append(1, PathSeparator).append(name);
    }

    const std::string path_;
    const MediaExtensions& types_;
    const std::atomic<bool>& stop_;
    const std::function<void(std::int64_t)>& tell_;
    FolderReader root_; ///< stays open: what is mounted over it meanwhile is not walked
    std::vector<Pending> folders_, links_;
    std::set<FolderIdentity> walked_;
    std::vector<Drive> drives_;
    std::uint64_t volume_ = 0; ///< of the folder that is being read
    std::string folder_;       ///< the one that is being read
    bool folderTaken_ = false; ///< it is among the found folders
    bool folderPlain_ = false; ///< no quotes in its path
    std::string name_;
    FoundFiles found_;
};

} // namespace

std::string FoundFiles::Path(const FoundFile& file) const {
    return std::string(folders[file.folder]).append(names, file.name, file.nameLength);
}

std::string FoundFiles::Key(const FoundFile& file) const {
    return Escape(Path(file));
}

bool FoundFiles::IsPath(const FoundFile& file, std::string_view path) const {
    const std::string& folder = folders[file.folder];
    return path.size() == folder.size() + file.nameLength && path.starts_with(folder) &&
           path.ends_with(std::string_view(names).substr(file.name, file.nameLength));
}

FoundFiles WalkMedia(const std::string& root, const MediaExtensions& types,
                     const std::atomic<bool>& stop, const std::function<void(std::int64_t)>& tell) {
    return Walk(root, types, stop, tell).Run();
}

} // namespace vk
