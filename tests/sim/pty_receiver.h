// A serial infra-red receiver on a pseudo-terminal, plugged in at a path that stays the same.
#pragma once

#include "platform/linux/descriptor.h"

#include <fcntl.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace vk::test {

class PtyReceiver {
  public:
    /// Plugs it in at `path`.
    explicit PtyReceiver(std::string path) : path_(std::move(path)) { Plug(); }
    ~PtyReceiver() { Unplug(); }
    PtyReceiver(const PtyReceiver&) = delete;
    PtyReceiver& operator=(const PtyReceiver&) = delete;

    void Plug() {
        master_ = FileDescriptor(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK));
        ::grantpt(master_.get());
        ::unlockpt(master_.get());
        std::filesystem::remove(path_);
        std::filesystem::create_symlink(::ptsname(master_.get()), path_);
        heard_.clear();
    }
    void Unplug() {
        master_.Close();
        std::filesystem::remove(path_);
    }
    bool Send(std::string_view bytes) {
        return ::write(master_.get(), bytes.data(), bytes.size()) ==
               static_cast<ssize_t>(bytes.size());
    }
    /// All that it was sent so far.
    const std::string& Heard() {
        std::array<char, 256> buffer;
        const ssize_t got = ::read(master_.get(), buffer.data(), buffer.size());
        if (got > 0) heard_.append(buffer.data(), static_cast<std::size_t>(got));
        return heard_;
    }

  private:
    std::string path_;
    FileDescriptor master_;
    std::string heard_;
};

} // namespace vk::test
