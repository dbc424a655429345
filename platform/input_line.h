// A line that is high or low, such as the one that the ignition hangs on.
#pragma once

#include <functional>
#include <string>

namespace vk {

/// All on the user-interface thread. Destroying it closes it.
class InputLine {
  public:
    virtual ~InputLine() = default;
    /// Opens the line `name`; false when there is none or it is in use.
    virtual bool Open(const std::string& name) = 0;
    /// Why the last `Open` gave false.
    virtual std::string Failure() const = 0;
    virtual void Close() = 0;
    /// False as well once the device has gone.
    virtual bool IsOpen() const = 0;
    virtual bool High() const = 0;

    /// The line has changed, perhaps more than once, or gone. Must not destroy it.
    std::function<void()> onChange;
};

} // namespace vk
