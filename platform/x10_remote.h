// Radio remotes of the X10 kind, which a driver of their own receives.
#pragma once

#include <functional>
#include <string>

namespace vk {

/// The driver's receiver object. Destroying it lets the driver go.
class X10Remote {
  public:
    virtual ~X10Remote() = default;
    /// A button: the house code ("A" to "P") and the command's name, on the user-interface thread.
    std::function<void(const std::string& house, const std::string& command)> X10Command;
};

} // namespace vk
