// Other processes of the machine.
#pragma once

#include <string>

namespace vk {

class Processes {
  public:
    virtual ~Processes() = default;
    /// The id of this process.
    virtual long OwnId() const = 0;
    /// Milliseconds since this process was started, to 10 ms.
    virtual long AgeMs() const = 0;
    /// True when a process other than `ownId` runs a program whose file name contains `name`
    /// (compared without regard to case; folders do not count, a missing ".exe" is no difference).
    virtual bool ProcessRunning(const std::string& name, long ownId) const = 0;
};

} // namespace vk
