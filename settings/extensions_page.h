// The settings page of the file types that count as audio and as video, as data.
#pragma once

#include "core/base.h"
#include "library/catalogue/updates.h"
#include "settings/pages/page.h"

namespace vk {

/// A change is refused while the catalogue is updated, and starts an update of its own. All of it
/// outlives the page.
Page ExtensionsPage(Base& base, MediaExtensions& extensions, CatalogueUpdates& catalogue);

} // namespace vk
