// The page for what the screens look like.
#pragma once

#include "settings/pages/page.h"

namespace vk {

/// Its settings count when the settings are left.
Page AppearancePage(SettingsStore& store);

} // namespace vk
