// One run of the catalogue server: the media folder is walked, compared with the rows, and what has
// changed is written to a copy, which then takes the place of the catalogue.
#pragma once

#include "core/debug_log.h"
#include "library/catalogue/protocol.h"

#include <atomic>
#include <functional>

namespace vk {

/// What a scan works with; all of it outlives the scan.
struct ScanNeeds {
    const DebugLog& log; ///< hears of damaged tags
    std::function<void(const ServerEvent&)> send;
    const std::atomic<bool>& stop; ///< set from another thread; the catalogue stays as it was then
};

/// Runs to the end. The last event of all tells the state: on-line, or disabled where there is no
/// row to show. A file is read when its date differs from the row's; rows without a file go, unless
/// nothing is known of the folder they were in: one that cannot be read, a link to nowhere, a drive
/// that is unplugged. The rows of a drive that never comes back go with its mount point's becoming
/// an ordinary folder of media files, or with the catalogue's being made anew, as it is for another
/// media folder. A media folder that does not answer, or has become empty, is an error that changes
/// nothing.
void RunScan(const ScanRequest& request, const ScanNeeds& needs);

} // namespace vk
