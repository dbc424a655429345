// The settings page of what presses, touches and lists do, as data.
#pragma once

#include "settings/pages/page.h"

namespace vk {

/// `store` outlives the page.
Page ActionsPage(SettingsStore& store);

} // namespace vk
