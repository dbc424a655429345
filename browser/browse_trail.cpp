#include "browser/browse_trail.h"

#include <utility>

namespace vk {

// A line end inside a file name would end the line of the settings file.
void BrowseTrail::Store(SettingsStore& settings, const Setting<std::string>& setting) {
    if (!std::exchange(played_, false)) return;
    if (history_.find_first_of("\r\n") == std::string::npos) settings.Set(setting, history_);
}

} // namespace vk
