// The fonts that are installed.
#pragma once

#include <string>

namespace vk {

class Fonts {
  public:
    virtual ~Fonts() = default;
    /// True when a family of this name is installed (compared without regard to case).
    virtual bool FontExists(const std::string& name) const = 0;
};

} // namespace vk
