// The installed fonts, as Qt knows them.
#pragma once

#include "platform/fonts.h"

#include <set>
#include <string>

namespace vk {

/// Reads the list of families once, when it is first asked.
class QtFonts : public Fonts {
  public:
    bool FontExists(const std::string& name) const override;

  private:
    mutable std::set<std::string> families_; ///< lower case
};

} // namespace vk
