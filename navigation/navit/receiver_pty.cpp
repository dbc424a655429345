#include "navigation/navit/receiver_pty.h"

#include <fcntl.h>
#include <termios.h>

#include <cstdlib>

namespace vk {

ReceiverPty::ReceiverPty() : ours_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
    if (!ours_ || ::grantpt(ours_.get()) != 0 || ::unlockpt(ours_.get()) != 0) return;
    char name[128] = "";
    if (::ptsname_r(ours_.get(), name, sizeof name) != 0) return;
    theirs_ = FileDescriptor(::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC));
    termios mode{};
    if (!theirs_ || ::tcgetattr(theirs_.get(), &mode) != 0) return;
    ::cfmakeraw(&mode); // no echo, and every byte as it is
    ::tcsetattr(theirs_.get(), TCSANOW, &mode);
    path_ = name;
}

// What was not taken whole would be cut in the middle of a sentence anyway.
void ReceiverPty::Write(std::string_view bytes) {
    if (ours_) [[maybe_unused]]
        const ssize_t taken = ::write(ours_.get(), bytes.data(), bytes.size());
}

void ReceiverPty::Clear() {
    if (theirs_) ::tcflush(theirs_.get(), TCIFLUSH);
}

} // namespace vk
