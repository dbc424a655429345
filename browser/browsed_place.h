// The drive that the browser is on.
#pragma once

#include "browser/drives.h"
#include "browser/list_desk.h"

#include <string>
#include <vector>

namespace vk {

/// What it is given outlives it.
class BrowsedPlace {
  public:
    explicit BrowsedPlace(ListDesk& desk)
        : desk_(desk), drives_(desk.needs.base.settings, desk.needs.base.volumes) {}

    const DriveRules& Drives() const { return drives_; }
    /// The name of the disc in the drive, UTF-8.
    std::string DiscLabel() const;
    /// Asks the configured disc drive where its disc is now and whether it is ready and keeps the
    /// answer in `CDReady`.
    bool CheckDisc();
    /// A folder is being entered: takes note of its drive, and says when that may be slow.
    void Mark(const std::string& folder);
    /// The lists that follow are of no folder.
    void Leave() { BrowsingCD = BrowsingRemovable = false; }
    /// True for a folder, and for the drive of an audio disc, whose tracks take the place of files.
    bool IsThere(const std::string& folder) const;
    /// The tracks of an audio disc when `folder` is its drive.
    std::vector<std::string> AudioTracks(const std::string& folder) const;
    /// Where the way back from a folder leads.
    std::string ParentOf(const std::string& folder) const;
    bool AtTop() const { return desk_.needs.state.CurrentPath == desk_.needs.MediaDir(); }
    bool OtherDrive() const { return BrowsingCD || BrowsingRemovable; }

    bool BrowsingCD = false;        ///< the current folder is on the disc drive
    bool BrowsingRemovable = false; ///< it is on a removable drive

  private:
    ListDesk& desk_;
    DriveRules drives_;
};

} // namespace vk
