// The settings page of skins, lists and fonts.
#pragma once

#include "settings/pages/page.h"

#include <functional>

namespace vk {

/// `skinChanged` is told when another skin may have to be shown now; `preview` shows what the rows
/// beside it change.
Page AppearancePage(SettingsStore& store, const std::function<void()>& skinChanged,
                    std::function<const PagePicture&()> preview);

} // namespace vk
