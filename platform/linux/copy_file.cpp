#include "platform/copy_file.h"

#include "platform/files.h"
#include "platform/linux/descriptor.h"
#include "platform/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace vk {

namespace {

constexpr std::size_t PieceBytes = 1u << 20;

/// A file that goes unless it is kept.
class PartialFile {
  public:
    explicit PartialFile(std::string path)
        : path_(std::move(path)),
          file_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644)) {}
    ~PartialFile() {
        if (file_ && !kept_) ::unlink(path_.c_str());
    }
    explicit operator bool() const { return bool(file_); }
    bool Write(const char* data, std::size_t size) const {
        while (size > 0) {
            const ssize_t written = ::write(file_.get(), data, size);
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            data += written;
            size -= static_cast<std::size_t>(written);
        }
        return true;
    }
    bool Keep(const struct stat& like, const std::string& as) {
        const timespec times[2] = {like.st_atim, like.st_mtim};
        kept_ = ::fchmod(file_.get(), (like.st_mode & 0777) | S_IWUSR) == 0 &&
                ::futimens(file_.get(), times) == 0 && FlushFile(path_) &&
                ::rename(path_.c_str(), as.c_str()) == 0;
        return kept_;
    }

  private:
    std::string path_;
    FileDescriptor file_;
    bool kept_ = false;
};

CopyOutcome Failure() {
    return {CopyOutcome::Failed, std::strerror(errno)};
}

CopyOutcome Copy(int from, std::uint64_t total, const PartialFile& to,
                 const CopyProgress& progress) {
    std::vector<char> piece(PieceBytes);
    for (std::uint64_t done = 0;;) {
        if (!progress(done, total)) return {CopyOutcome::Stopped, {}};
        const ssize_t got = ::read(from, piece.data(), piece.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0 || !to.Write(piece.data(), static_cast<std::size_t>(got))) return Failure();
        if (got == 0) return {CopyOutcome::Done, {}};
        done += static_cast<std::uint64_t>(got);
    }
}

} // namespace

CopyOutcome CopyInPieces(const std::string& from, const std::string& to,
                         const CopyProgress& progress) {
    const FileDescriptor source(::open(from.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat info {};
    if (!source || ::fstat(source.get(), &info) != 0) return Failure();
    if (!S_ISREG(info.st_mode)) return {CopyOutcome::Failed, std::strerror(EINVAL)};
    // What a copying that was cut off has left.
    const std::string partial = to + ".part";
    ::unlink(partial.c_str());
    PartialFile copy(partial);
    if (!copy) return Failure();
    const auto total = static_cast<std::uint64_t>(info.st_size);
    const CopyOutcome outcome = Copy(source.get(), total, copy, progress);
    return outcome.kind != CopyOutcome::Done || copy.Keep(info, to) ? outcome : Failure();
}

std::optional<std::uint64_t> FreeSpace(const std::string& path) {
    std::string folder = WithoutTrailingSeparator(path);
    while (!FolderExists(folder) && FolderOf(folder) != folder)
        folder = FolderOf(folder);
    struct statvfs info {};
    if (::statvfs(folder.empty() ? "." : folder.c_str(), &info) != 0) return std::nullopt;
    return static_cast<std::uint64_t>(info.f_bavail) * info.f_frsize;
}

} // namespace vk
