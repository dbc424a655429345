// A connection to a service of this machine that listens at a path.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace vk {

/// One connection, only read from. All on the user-interface thread. Destroying it closes it.
class LocalStream {
  public:
    virtual ~LocalStream() = default;
    /// Never waits; false when nobody listens at `path`.
    virtual bool Connect(const std::string& path) = 0;
    virtual void Close() = 0;
    /// Takes the bytes that wait, 64 KiB at most; never waits.
    virtual std::string Input() = 0;

    /// Bytes as they come, in pieces of any length. Both may close the connection, but must not
    /// destroy it.
    std::function<void(std::string_view bytes)> onBytes;
    /// The other end has gone; the connection has been closed.
    std::function<void()> onClosed;
};

} // namespace vk
