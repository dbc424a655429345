// Which drive a folder is on, and which drives the browser offers.
#pragma once

#include "core/settings.h"
#include "platform/volumes.h"

#include <string>
#include <vector>

namespace vk {

/// Where a folder lies, seen from the media folder.
enum class Place { Media, Disc, Removable };

/// The drive rules. What it is given outlives it.
class DriveRules {
  public:
    DriveRules(const SettingsStore& settings, const Volumes& volumes)
        : settings_(settings), volumes_(volumes) {
        FindDisc();
    }

    /// True when an optical drive is configured.
    bool HasDiscDrive() const;
    /// The root that the disc drive had when it was last looked for.
    const std::string& DiscDrive() const { return disc_; }
    /// Looks for the disc drive: its root may be another one with each disc.
    void FindDisc();
    /// The root of the drive that holds `path`; an optical drive counts even without a disc.
    std::string DriveOf(const std::string& path) const;
    /// A folder on the media folder's own drive is `Media`, wherever it lies there, and so is one
    /// on a drive that is mounted in the media folder, unless it is the disc.
    Place PlaceOf(const std::string& path) const;
    /// True for the root of a drive outside the media folder: the way back from there leads to the
    /// media folder.
    bool IsDriveRoot(const std::string& path) const;
    /// Removable and fixed drives but those of and in the media folder, the discs and the system.
    std::vector<std::string> RemovableDrives() const;

  private:
    bool InMediaFolder(const std::string& path) const;

    const SettingsStore& settings_;
    const Volumes& volumes_;
    std::string disc_; ///< "" without an optical drive
};

} // namespace vk
