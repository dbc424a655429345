#include "dbupdate/scan/walk.h"

#include "core/error_report.h"
#include "library/catalogue/sql_text.h"
#include "library/media_type.h"
#include "platform/linux/descriptor.h"
#include "platform/paths.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <set>
#include <string_view>
#include <utility>

namespace vk {

namespace {

constexpr int FolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

/// What is gone since its name was read is no failure.
bool IsGone(int error) {
    return error == ENOENT || error == ENOTDIR || error == ELOOP;
}

class Walk {
  public:
    Walk(const std::string& root, const AppState& types, const std::atomic<bool>& stop)
        : root_(root), types_(types), stop_(stop) {}

    FoundFiles Run() {
        rootHandle_ = FileDescriptor(::open(root_.c_str(), FolderFlags));
        if (!rootHandle_) FailRoot(errno);
        const auto identity = Identity(rootHandle_.get());
        // Folders that are links come last: a folder is known by its own name where it has one.
        for (folders_ = {""}; !folders_.empty() || !links_.empty();) {
            if (folders_.empty()) folders_ = std::exchange(links_, {});
            const std::string folder = std::move(folders_.back());
            folders_.pop_back();
            WalkFolder(folder);
            if (stop_) break;
        }
        found_.stopped = stop_;
        const FileDescriptor again(::open(root_.c_str(), FolderFlags));
        if (!again) FailRoot(errno);
        if (Identity(again.get()) != identity) FailRoot(ESTALE);
        return std::move(found_);
    }

  private:
    using FolderIdentity = std::pair<dev_t, ino_t>;

    [[noreturn]] void FailRoot(int error) const {
        throw Error("The media folder " + root_ + " cannot be read: " + std::strerror(error),
                    error);
    }

    static FolderIdentity Identity(int handle) {
        struct stat info {};
        if (::fstat(handle, &info) != 0) return {};
        return {info.st_dev, info.st_ino};
    }

    void WalkFolder(const std::string& folder) {
        const int handle =
            ::openat(rootHandle_.get(), folder.empty() ? "." : folder.c_str() + 1, FolderFlags);
        const Folder open(handle < 0 ? nullptr : ::fdopendir(handle));
        if (!open) return MissFolder(folder, errno);
        if (!walked_.insert(Identity(handle)).second) return;
        for (;;) {
            errno = 0;
            const dirent* entry = ::readdir(open.get());
            if (!entry) break;
            TakeEntry(handle, folder, *entry);
            if (stop_) return;
        }
        if (errno != 0) MissFolder(folder, errno);
    }

    void MissFolder(const std::string& folder, int error) {
        if (folder.empty()) FailRoot(error);
        if (!IsGone(error)) Miss(folder);
    }

    /// A file or a folder.
    void Miss(const std::string& path) {
        found_.unread.push_back(Escape(path));
        found_.unread.push_back(Escape(path + PathSeparator));
    }

    void TakeEntry(int parent, const std::string& folder, const dirent& entry) {
        const std::string_view name = entry.d_name;
        if (name == "." || name == "..") return;
        if (entry.d_type == DT_DIR) {
            folders_.push_back(Below(folder, name));
            return;
        }
        // A link or an entry of unknown kind may be a folder, whatever its name.
        const bool named = entry.d_type == DT_REG;
        const int type = TypeOf(name);
        if (named && type == MediaUnknown) return;
        struct stat info {};
        if (::fstatat(parent, entry.d_name, &info, 0) != 0) {
            // A link to nowhere may lead to a drive that comes up later.
            if (!IsGone(errno) || entry.d_type == DT_LNK) Miss(Below(folder, name));
        } else if (S_ISDIR(info.st_mode)) {
            (entry.d_type == DT_LNK ? links_ : folders_).push_back(Below(folder, name));
        } else if (S_ISREG(info.st_mode) && type != MediaUnknown) {
            TakeFile(Below(folder, name), info.st_mtime, type);
        }
    }

    /// A name too short for a path of its own counts with the separator in front.
    int TypeOf(std::string_view name) {
        name_.assign(1, PathSeparator);
        name_ += name;
        return GetMediaType(types_, name_);
    }

    void TakeFile(std::string path, std::int64_t date, int type) {
        std::string key = Escape(path);
        if (key == path) key.clear();
        found_.files.push_back({std::move(path), std::move(key), date, type});
    }

    static std::string Below(const std::string& folder, std::string_view name) {
        std::string path;
        path.reserve(folder.size() + 1 + name.size());
        return path.append(folder).append(1, PathSeparator).append(name);
    }

    const std::string root_;
    const AppState& types_;
    const std::atomic<bool>& stop_;
    FileDescriptor rootHandle_;
    std::vector<std::string> folders_, links_;
    std::set<FolderIdentity> walked_;
    std::string name_;
    FoundFiles found_;
};

} // namespace

FoundFiles WalkMedia(const std::string& root, const AppState& types,
                     const std::atomic<bool>& stop) {
    return Walk(root, types, stop).Run();
}

} // namespace vk
