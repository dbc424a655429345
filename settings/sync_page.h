// The page of the synchronisation, as data.
#pragma once

#include "settings/pages/page.h"
#include "sync/synchronizer.h"

namespace vk {

/// While a run is under way its folders and rules stay as they are.
Page SyncPage(Base& base, Synchronizer& sync);

} // namespace vk
