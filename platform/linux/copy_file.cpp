#include "platform/copy_file.h"

#include "platform/files.h"
#include "platform/linux/descriptor.h"
#include "platform/paths.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <utility>

namespace vk {

namespace {

// Small enough that a slow stick, too, asks often whether to go on.
constexpr std::size_t PieceBytes = 128u << 10;
// What waits for the disk at most: with more of it the last flush would be long, and nobody could
// stop it.
constexpr std::uint64_t WindowBytes = 1u << 20;
constexpr std::size_t LongestName = 255;

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
    bool Write(const char* data, std::size_t size) {
        while (size > 0) {
            const ssize_t written = ::write(file_.get(), data, size);
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) return false;
            data += written;
            size -= static_cast<std::size_t>(written);
            length_ += static_cast<std::uint64_t>(written);
        }
        return length_ - begun_ < WindowBytes || PushOut();
    }
    bool Keep(const struct stat& like, const std::string& as) {
        const timespec times[2] = {like.st_atim, like.st_mtim};
        kept_ = ::fchmod(file_.get(), (like.st_mode & 0777) | S_IWUSR) == 0 &&
                ::futimens(file_.get(), times) == 0 && ::fsync(file_.get()) == 0 &&
                ::rename(path_.c_str(), as.c_str()) == 0;
        return kept_;
    }

  private:
    // The last window is on its way to the disk while the next one is read.
    bool PushOut() {
        const auto range = [this](std::uint64_t from, std::uint64_t to, unsigned how) {
            return from == to || ::sync_file_range(file_.get(), static_cast<off_t>(from),
                                                   static_cast<off_t>(to - from), how) == 0;
        };
        const bool done =
            range(begun_, length_, SYNC_FILE_RANGE_WRITE) &&
            range(waiting_, begun_,
                  SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
        // Nobody reads it soon, and to give all of it up at the end of a stopped copying takes
        // long.
        ::posix_fadvise(file_.get(), static_cast<off_t>(waiting_),
                        static_cast<off_t>(begun_ - waiting_), POSIX_FADV_DONTNEED);
        waiting_ = std::exchange(begun_, length_);
        return done || errno == ENOSYS || errno == EINVAL; // not every file system knows it
    }

    std::string path_;
    FileDescriptor file_;
    std::uint64_t waiting_ = 0, begun_ = 0, length_ = 0; ///< up to where the disk has it, or will
    bool kept_ = false;
};

// A name of its own where the file's has no room for an ending.
std::string PartialName(const std::string& to) {
    constexpr const char* Ending = ".part";
    const std::size_t length = FileNameOf(to).size() + std::strlen(Ending);
    return length <= LongestName ? to + Ending : JoinPath(FolderOf(to), std::string("vk") + Ending);
}

CopyOutcome Failure() {
    return {CopyOutcome::Failed, std::strerror(errno)};
}

CopyOutcome Copy(int from, std::uint64_t total, PartialFile& to, const CopyProgress& progress) {
    const auto piece = std::make_unique_for_overwrite<char[]>(PieceBytes);
    for (std::uint64_t done = 0;;) {
        if (!progress(done, total)) return {CopyOutcome::Stopped, {}};
        if (done == total) return {CopyOutcome::Done, {}}; // one that grows would never end
        const auto wanted = std::min<std::uint64_t>(PieceBytes, total - done);
        const ssize_t got = ::read(from, piece.get(), wanted);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0 || !to.Write(piece.get(), static_cast<std::size_t>(got))) return Failure();
        if (got == 0) return {CopyOutcome::Done, {}};
        done += static_cast<std::uint64_t>(got);
    }
}

bool SameMoment(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

bool HasChanged(int file, const struct stat& before) {
    struct stat now {};
    return ::fstat(file, &now) != 0 || now.st_size != before.st_size ||
           !SameMoment(now.st_mtim, before.st_mtim);
}

} // namespace

CopyOutcome CopyInPieces(const std::string& from, const std::string& to,
                         const CopyProgress& progress, WhenChanged whenChanged) {
    const FileDescriptor source(::open(from.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat info {};
    if (!source || ::fstat(source.get(), &info) != 0) return Failure();
    if (!S_ISREG(info.st_mode)) return {CopyOutcome::Failed, std::strerror(EINVAL)};
    // What a copying that was cut off has left.
    const std::string partial = PartialName(to);
    ::unlink(partial.c_str());
    PartialFile copy(partial);
    if (!copy) return Failure();
    const auto total = static_cast<std::uint64_t>(info.st_size);
    CopyOutcome outcome = Copy(source.get(), total, copy, progress);
    if (outcome.kind != CopyOutcome::Done) return outcome;
    if (whenChanged == WhenChanged::Fail && HasChanged(source.get(), info))
        return {CopyOutcome::Failed, CopyOutcome::Changed};
    return copy.Keep(info, to) ? outcome : Failure();
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
