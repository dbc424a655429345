#include "browser/browse_trail.h"

#include <utility>

namespace vk {

// A line end inside a file name would end the line of the settings file.
void BrowseTrail::Store(SettingsStore& settings, const char* section) {
    if (!std::exchange(played_, false)) return;
    if (history_.find_first_of("\r\n") == std::string::npos)
        settings.Write(section, "BrowseHistory", history_);
}

} // namespace vk
