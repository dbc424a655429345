// Pieces of a film's file.
#pragma once

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string>

namespace vk {

/// May wait for the medium at every read.
class FilmBytes {
  public:
    explicit FilmBytes(const std::string& path) : file_(path, std::ios::binary | std::ios::ate) {
        size_ = std::max<std::int64_t>(0, static_cast<std::int64_t>(file_.tellg()));
    }
    std::int64_t Size() const { return size_; }
    /// As many bytes from there on as there are of `count`.
    std::string Read(std::int64_t at, std::int64_t count) {
        std::string bytes(static_cast<std::size_t>(std::clamp(size_ - at, std::int64_t{0}, count)),
                          '\0');
        file_.clear();
        file_.seekg(at);
        file_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(0, file_.gcount())));
        return bytes;
    }

  private:
    std::ifstream file_;
    std::int64_t size_ = 0;
};

} // namespace vk
