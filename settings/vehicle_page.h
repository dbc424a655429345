// The settings page of the vehicle: the ignition, the machine's power, the dimmed screen.
#pragma once

#include "settings/pages/page.h"

namespace vk {

/// Both outlive the page.
Page VehiclePage(SettingsStore& store, Dialogs& dialogs);

} // namespace vk
