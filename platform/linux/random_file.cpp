#include "platform/random_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vk {

RandomFile::RandomFile(const std::string& path)
    : handle_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY)) {
    struct stat info {};
    if (handle_ < 0) return;
    if (::fstat(handle_, &info) == 0 && S_ISREG(info.st_mode)) {
        length_ = static_cast<std::uint64_t>(info.st_size);
        return;
    }
    ::close(handle_);
    handle_ = -1;
}

RandomFile::~RandomFile() {
    if (handle_ >= 0) ::close(handle_);
}

std::size_t RandomFile::ReadAt(std::uint64_t position, char* to, std::size_t count) const {
    std::size_t done = 0;
    while (done < count) {
        const ssize_t got =
            ::pread(handle_, to + done, count - done, static_cast<off_t>(position + done));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

} // namespace vk
