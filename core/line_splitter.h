// Lines out of a stream of bytes that comes in pieces.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace vk {

/// Cuts a stream of bytes into lines. A line of more than `maxLine` bytes is dropped whole.
class LineSplitter {
  public:
    static constexpr std::size_t MaxLine = 256 * 1024;
    LineSplitter() = default;
    explicit LineSplitter(std::size_t maxLine) : maxLine_(maxLine) {}
    /// Each complete line goes to `onLine` without its line feed.
    void Feed(std::string_view bytes, const std::function<void(std::string_view)>& onLine);

  private:
    std::size_t maxLine_ = MaxLine;
    std::string pending_;
    bool dropping_ = false;
};

} // namespace vk
