// What has changed between the rows of the catalogue and the files.
#pragma once

#include "dbupdate/scan/walk.h"
#include "library/catalogue/sqlite.h"

#include <string>
#include <vector>

namespace vk {

/// What a scan has to do.
struct Changes {
    std::vector<const FoundFile*> toRead; ///< new, or of another date than their row
    std::vector<std::string> gone;        ///< keys of rows without a file
    std::int64_t rows = 0;                ///< that the catalogue has
    /// Keys of the drives that rows lie on, a separator at their end.
    std::vector<std::string> drives;
    bool otherDrives = false; ///< than the catalogue knows

    bool None() const { return toRead.empty() && gone.empty() && !otherDrives; }
};

/// Compares files with rows. A folder that was a mounted drive the last time, is none now and has
/// no media file in it (or is not there at all) keeps its rows: the drive is unplugged. `catalogue`
/// is null where there is none to trust: all is to be read. `found` must not change as long as the
/// result is used.
Changes CompareWithRows(const FoundFiles& found, Database* catalogue);

} // namespace vk
