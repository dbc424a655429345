// One system at a time in one application directory.
#pragma once

#include <memory>
#include <string>

namespace vk {

/// Held until this object or the process goes, however that comes: a system that is still closing
/// has it, one that has crashed has not.
class InstanceLock {
  public:
    virtual ~InstanceLock() = default;
    /// Takes the folder, and lets go of the one before; false when another process has it. Where
    /// the file system knows no locks everybody gets it.
    virtual bool Claim(const std::string& folder) = 0;
};

/// The platform's own adapter.
std::unique_ptr<InstanceLock> MakeInstanceLock();

} // namespace vk
