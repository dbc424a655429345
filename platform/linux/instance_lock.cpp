#include "platform/instance_lock.h"

#include "platform/linux/descriptor.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

namespace vk {

namespace {

/// The lock lies on the folder itself: it needs no file and no right to write, and whatever name
/// leads to the folder it is the same lock.
class FolderLock : public InstanceLock {
  public:
    bool Claim(const std::string& folder) override {
        handle_.Close();
        FileDescriptor handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (handle && ::flock(handle.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
            return false;
        handle_ = std::move(handle);
        return true;
    }

  private:
    FileDescriptor handle_;
};

} // namespace

std::unique_ptr<InstanceLock> MakeInstanceLock() {
    return std::make_unique<FolderLock>();
}

} // namespace vk
