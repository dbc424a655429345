#include "player/engine/instance.h"

#include "platform/linux/player_socket.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace vk {

bool Instance::Claim() {
    if (path_.empty()) return false;
    // The lock file stays for good: were it removed, two processes could lock two files.
    FileDescriptor lock(::open((path_ + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!lock || ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) return false;
    listener_ = ListenAt(path_);
    if (!listener_) return false;
    lock_ = std::move(lock);
    LeadHere();
    return true;
}

void Instance::Release() {
    if (!lock_) return;
    LeadNowhere();
    ::unlink(path_.c_str());
    listener_.Close();
    lock_.Close();
}

void Instance::LeadHere() const {
    if (common_.empty() || ConnectTo(common_)) return;
    ::unlink(common_.c_str());
    static_cast<void>(::symlink(path_.c_str(), common_.c_str())); // nobody may ever look at it
}

void Instance::LeadNowhere() const {
    std::error_code ignored;
    if (std::filesystem::read_symlink(common_, ignored) == path_) ::unlink(common_.c_str());
}

} // namespace vk
