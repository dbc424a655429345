#include "platform/file_state.h"

#include "platform/paths.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>

namespace vk {

namespace {

// The kernel's clock for files ticks at 100 Hz or faster.
constexpr std::int64_t TickNs = 50'000'000;

std::int64_t Nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

bool LongAgo(std::int64_t changed) {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return std::abs(Nanoseconds(now) - changed) > TickNs;
}

} // namespace

FileStamp StampOf(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return {.settled = true};
    FileStamp stamp{.node = info.st_ino,
                    .length = static_cast<std::uint64_t>(info.st_size),
                    .written = Nanoseconds(info.st_mtim),
                    .changed = Nanoseconds(info.st_ctim)};
    stamp.settled = LongAgo(stamp.written) && LongAgo(stamp.changed);
    return stamp;
}

bool CanReplace(const std::string& path) {
    char* real = ::realpath(path.c_str(), nullptr);
    const std::string folder = FolderOf(real ? real : path);
    ::free(real);
    return ::access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) == 0;
}

} // namespace vk
