// A file descriptor that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace vk {

class FileDescriptor {
  public:
    explicit FileDescriptor(int fd = -1) : fd_(fd) {}
    ~FileDescriptor() { Close(); }
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            Close();
            fd_ = std::exchange(other.fd_, -1);
        }
        return *this;
    }
    explicit operator bool() const { return fd_ >= 0; }
    int get() const { return fd_; }
    /// Closes now and tells whether the data reached the kernel; true when nothing was open.
    bool Close() {
        const int fd = std::exchange(fd_, -1);
        return fd < 0 || ::close(fd) == 0;
    }

  private:
    int fd_;
};

} // namespace vk
