// The remote of a machine that nobody has set up yet.
#pragma once

#include "core/settings.h"

#include <functional>

namespace vk {

/// Takes lircd's receiver when no remote is enabled, and gives its usual names of buttons to the
/// actions that have no code. `open` opens the receiver of the settings; when it gives false
/// everything stays as it was. True when the receiver was taken.
bool TakeLirc(SettingsStore& settings, const std::function<bool()>& open);

} // namespace vk
