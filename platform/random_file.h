// A file that is read at any position.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vk {

/// A regular file open for reading; anything else (a folder, a pipe, a device) does not open.
class RandomFile {
  public:
    explicit RandomFile(const std::string& path);
    ~RandomFile();
    RandomFile(const RandomFile&) = delete;
    RandomFile& operator=(const RandomFile&) = delete;

    bool IsOpen() const { return handle_ >= 0; }
    /// Bytes in the file when it was opened.
    std::uint64_t Length() const { return length_; }
    /// Reads at `position` into `to`; returns how many bytes there were, 0 also on a failure.
    std::size_t ReadAt(std::uint64_t position, char* to, std::size_t count) const;

  private:
    int handle_ = -1;
    std::uint64_t length_ = 0;
};

} // namespace vk
