#include "platform/files.h"

#include "platform/linux/descriptor.h"
#include "platform/paths.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace vk {

namespace {

bool WriteAll(int fd, std::string_view data) {
    while (!data.empty()) {
        const ssize_t written = ::write(fd, data.data(), data.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        data.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool Fail(std::string* reason) {
    if (reason) *reason = std::strerror(errno);
    return false;
}

bool WriteFlushed(const std::string& path, std::string_view contents, mode_t mode) {
    FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, mode));
    return file && WriteAll(file.get(), contents) && ::fsync(file.get()) == 0 && file.Close();
}

// Without this the rename itself may be lost in a power cut.
void FlushFolder(const std::string& folder) {
    FileDescriptor handle(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC));
    if (handle) ::fsync(handle.get());
}

// A link stays a link: what it points to is replaced.
std::string FollowLink(const std::string& path) {
    char* real = ::realpath(path.c_str(), nullptr);
    if (!real) return path;
    std::string result = real;
    ::free(real);
    return result;
}

} // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit) {
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat info {};
    if (!file || ::fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    std::string contents;
    contents.resize(std::min(limit, static_cast<std::size_t>(info.st_size)));
    std::size_t filled = 0;
    while (filled < contents.size()) {
        const ssize_t got = ::read(file.get(), contents.data() + filled, contents.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    contents.resize(filled);
    return contents;
}

bool ReplaceFile(const std::string& path, std::string_view contents, std::string* reason) {
    const std::string target = FollowLink(path);
    const std::string temporary = target + ".new";
    struct stat info {};
    const mode_t mode = ::stat(target.c_str(), &info) == 0 ? info.st_mode & 0777 : 0644;
    if (!WriteFlushed(temporary, contents, mode) ||
        ::rename(temporary.c_str(), target.c_str()) != 0) {
        const bool result = Fail(reason);
        ::unlink(temporary.c_str());
        return result;
    }
    FlushFolder(FolderOf(target));
    return true;
}

bool AppendToFile(const std::string& path, std::string_view contents) {
    FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK | O_CLOEXEC, 0644));
    return file && WriteAll(file.get(), contents);
}

bool RenameFlushed(const std::string& from, const std::string& to) {
    if (!FlushFile(from) || ::rename(from.c_str(), to.c_str()) != 0) return false;
    FlushFolder(FolderOf(to));
    return true;
}

bool FlushFile(const std::string& path) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file && ::fsync(file.get()) == 0;
}

bool CopyFileTo(const std::string& from, const std::string& to) {
    const auto contents = ReadWholeFile(from, static_cast<std::size_t>(-1) / 2);
    return contents && ReplaceFile(to, *contents);
}

bool DeleteFileAt(const std::string& path) {
    return ::unlink(path.c_str()) == 0;
}

bool MakeFolder(const std::string& path) {
    return ::mkdir(path.c_str(), 0755) == 0;
}

bool IsProgramFile(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

bool FileExists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && !S_ISDIR(info.st_mode);
}

bool FolderExists(const std::string& path) {
    struct stat info {};
    return path.empty() || (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode));
}

std::uint64_t FileLength(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return 0;
    return static_cast<std::uint64_t>(info.st_size);
}

std::vector<FolderEntry> ListFolder(const std::string& path, const std::function<bool()>& pulse) {
    std::vector<FolderEntry> entries;
    DIR* folder = ::opendir(path.c_str());
    if (!folder) return entries;
    while (const dirent* item = ::readdir(folder)) {
        const std::string name = item->d_name;
        struct stat info {};
        if (name == "." || name == ".." || ::fstatat(::dirfd(folder), item->d_name, &info, 0) != 0)
            continue;
        const bool isFolder = S_ISDIR(info.st_mode);
        entries.push_back(
            {name, isFolder, S_ISREG(info.st_mode) ? static_cast<std::uint64_t>(info.st_size) : 0});
        if (pulse && entries.size() % 256 == 0 && !pulse()) break;
    }
    ::closedir(folder);
    return entries;
}

std::string ExecutableFolder() {
    std::string path(4096, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return FolderOf(path);
}

} // namespace vk
