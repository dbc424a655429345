#include "browser/browsed_place.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

std::string BrowsedPlace::DiscLabel() const {
    return ToUtf8(desk_.needs.base.volumes.Label(drives_.DiscDrive()));
}

bool BrowsedPlace::CheckDisc() {
    drives_.FindDisc();
    desk_.needs.base.state.CDReady =
        drives_.HasDiscDrive() && desk_.needs.base.volumes.IsReady(drives_.DiscDrive());
    return desk_.needs.base.state.CDReady;
}

void BrowsedPlace::Mark(const std::string& folder) {
    const Place place = drives_.PlaceOf(folder);
    BrowsingCD = place == Place::Disc;
    BrowsingRemovable = place == Place::Removable;
    if (BrowsingCD) desk_.ShowBusy("Reading CD/DVD");
    if (BrowsingRemovable) desk_.ShowBusy("Reading removable drive " + drives_.DriveOf(folder));
}

bool BrowsedPlace::IsThere(const std::string& folder) const {
    return FolderExists(folder) || !AudioTracks(folder).empty();
}

std::vector<std::string> BrowsedPlace::AudioTracks(const std::string& folder) const {
    const bool disc = drives_.HasDiscDrive() && folder == drives_.DiscDrive();
    return disc ? desk_.needs.base.volumes.AudioTracks(folder) : std::vector<std::string>();
}

std::string BrowsedPlace::ParentOf(const std::string& folder) const {
    const std::string top = desk_.needs.MediaDir();
    return folder == top || drives_.IsDriveRoot(folder) ? top : FolderOf(folder);
}

} // namespace vk
