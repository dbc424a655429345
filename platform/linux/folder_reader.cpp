#include "platform/folder_reader.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vk {

namespace {

constexpr int FolderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;

std::error_code LastError() {
    return {errno, std::system_category()};
}

FolderReader::Kind KindOf(unsigned char type) {
    switch (type) {
    case DT_REG:
        return FolderReader::Kind::File;
    case DT_DIR:
        return FolderReader::Kind::Folder;
    case DT_LNK:
        return FolderReader::Kind::Link;
    case DT_UNKNOWN:
        return FolderReader::Kind::Unknown;
    default:
        return FolderReader::Kind::Other;
    }
}

std::optional<FolderReader::Facts> LookAt(int folder, const char* name) {
    struct stat info {};
    if (::fstatat(folder, name, &info, 0) != 0) return std::nullopt;
    return FolderReader::Facts{S_ISDIR(info.st_mode), S_ISREG(info.st_mode), info.st_mtime,
                               static_cast<std::uint64_t>(info.st_size)};
}

} // namespace

struct FolderReader::Open {
    explicit Open(DIR* opened) : folder(opened), handle(::dirfd(opened)) {}
    ~Open() { ::closedir(folder); }
    Open(const Open&) = delete;
    Open& operator=(const Open&) = delete;

    DIR* const folder;
    const int handle;
    const dirent* entry = nullptr; ///< the last one
};

FolderReader::FolderReader(const std::string& path, const FolderReader* base) {
    const int from = base && base->open_ ? base->open_->handle : AT_FDCWD;
    const char* const name = base && path.empty() ? "." : path.c_str(); // itself
    const int handle = ::openat(from, name, FolderFlags);
    DIR* const folder = handle < 0 ? nullptr : ::fdopendir(handle);
    if (folder) {
        open_ = std::make_unique<Open>(folder);
        return;
    }
    error_ = LastError();
    if (handle >= 0) ::close(handle);
}

FolderReader::~FolderReader() = default;

FolderIdentity FolderReader::Identity() const {
    struct stat info {};
    if (!open_ || ::fstat(open_->handle, &info) != 0) return {};
    return {info.st_dev, info.st_ino};
}

std::optional<FolderReader::Entry> FolderReader::Next() {
    for (;;) {
        errno = 0;
        open_->entry = ::readdir(open_->folder);
        error_ = LastError();
        if (!open_->entry) return std::nullopt;
        const std::string_view name = open_->entry->d_name;
        if (name != "." && name != "..") return Entry{name, KindOf(open_->entry->d_type)};
    }
}

std::optional<FolderReader::Facts> FolderReader::Look() {
    const auto facts = LookAt(open_->handle, open_->entry->d_name);
    if (!facts) error_ = LastError();
    return facts;
}

std::optional<FolderReader::Facts> FolderReader::Look(const std::string& name) const {
    return open_ ? LookAt(open_->handle, name.c_str()) : std::nullopt;
}

} // namespace vk
