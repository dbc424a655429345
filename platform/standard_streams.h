// A conversation in bytes on the process's standard streams.
#pragma once

#include <cstddef>
#include <string_view>

namespace vk {

class StandardStreams {
  public:
    /// From now on a reader that is gone is told by `Write` and does not end the process, and line
    /// ends pass unchanged.
    StandardStreams();
    /// Waits for input; returns how many bytes there were, 0 at its end or on a failure.
    std::size_t Read(char* to, std::size_t count);
    /// Waits until all is taken; false when nobody takes it any more. Not for two threads at once.
    bool Write(std::string_view bytes);
};

} // namespace vk
