#include "platform/standard_streams.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>

namespace vk {

StandardStreams::StandardStreams() {
    ::_setmode(::_fileno(stdin), _O_BINARY);
    ::_setmode(::_fileno(stdout), _O_BINARY);
}

std::size_t StandardStreams::Read(char* to, std::size_t count) {
    const int got = ::_read(::_fileno(stdin), to, static_cast<unsigned>(count));
    return got > 0 ? static_cast<std::size_t>(got) : 0;
}

bool StandardStreams::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const int written =
            ::_write(::_fileno(stdout), bytes.data(), static_cast<unsigned>(bytes.size()));
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace vk
