// The settings page of skins, lists and fonts.
#pragma once

#include "settings/pages/page.h"

#include <functional>

namespace vk {

/// `skinChanged` is told when another skin may have to be shown now.
Page AppearancePage(SettingsStore& store, std::function<void()> skinChanged);

} // namespace vk
