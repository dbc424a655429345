// Other processes of the machine.
#pragma once

#include <string>

namespace vk {

class Processes {
  public:
    virtual ~Processes() = default;
    /// The id of this process.
    virtual long OwnId() const = 0;
    /// True when a process other than `ownId` runs a program whose file name contains `name`
    /// (compared without regard to case; folders do not count, a missing ".exe" is no difference).
    virtual bool ProcessRunning(const std::string& name, long ownId) const = 0;
    /// Starts a program hidden, with its arguments as one command line in the platform's own
    /// quoting, and returns at once. The process number, 0 when it could not be started.
    virtual long RunHidden(const std::string& program, const std::string& arguments,
                           const std::string& folder) = 0;
};

} // namespace vk
