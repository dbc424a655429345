#include "platform/standard_streams.h"

#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace vk {

StandardStreams::StandardStreams() {
    ::signal(SIGPIPE, SIG_IGN);
}

std::size_t StandardStreams::Read(char* to, std::size_t count) {
    ssize_t got = 0;
    do
        got = ::read(STDIN_FILENO, to, count);
    while (got < 0 && errno == EINTR);
    return got > 0 ? static_cast<std::size_t>(got) : 0;
}

bool StandardStreams::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace vk
