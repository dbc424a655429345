// Bytes from the satellite receiver to the payloads of its frames.
#pragma once

#include "tuners/xm/trace.h"

#include <optional>
#include <string>
#include <string_view>

namespace vk {

/// `inputQueue`. There is no resynchronisation: what does not begin a frame blocks the queue until
/// it is cleared, as the timeout of the link does.
class InputQueue {
  public:
    explicit InputQueue(Trace trace = {}) : trace_(std::move(trace)) {}

    /// Takes what has arrived. A lone byte that begins no frame gives way to it.
    void Add(std::string_view bytes);
    /// `DecodeInputQueue`: takes one complete frame out and gives its payload; nothing when there
    /// is none. The trailer is not looked at.
    std::optional<std::string> TakeFrame();
    void Clear() { bytes_.clear(); }
    /// Bytes that wait.
    std::size_t Size() const { return bytes_.size(); }

  private:
    void Remove(std::size_t count);

    Trace trace_;
    std::string bytes_;
};

} // namespace vk
