// Walking back to where the user last was.
#pragma once

#include "browser/chooser.h"
#include "browser/lists.h"

namespace vk {

/// The way to what was played last, as it is kept in the settings, is walked again from the top;
/// the played row itself is not chosen. It ends where a row is no longer there to be chosen.
void RestoreBrowseHistory(BrowserLists& lists, Chooser& chooser);

} // namespace vk
