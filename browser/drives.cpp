#include "browser/drives.h"

#include "core/optical_drive.h"
#include "core/text.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

bool LiesBelow(const std::string& path, const std::string& root) {
    return path == root || path.starts_with(JoinPath(root, std::string(1, PathSeparator)));
}

} // namespace

bool DriveRules::HasDiscDrive() const {
    const std::string& drive = settings_.values.CDDriveLetter;
    return !drive.empty() && !EqualNoCase(drive, "NONE");
}

void DriveRules::FindDisc() {
    disc_ = OpticalRoot(volumes_, settings_.values.CDDriveLetter);
}

std::string DriveRules::DriveOf(const std::string& path) const {
    // Without a disc in it an optical drive may not be mounted, and its root is a plain folder.
    if (!disc_.empty() && LiesBelow(path, disc_)) return disc_;
    return volumes_.DriveOf(path);
}

Place DriveRules::PlaceOf(const std::string& path) const {
    const std::string drive = DriveOf(path);
    if (EqualNoCase(drive, DriveOf(settings_.values.MediaDir))) return Place::Media;
    if (EqualNoCase(drive, disc_)) return Place::Disc;
    return InMediaFolder(path) ? Place::Media : Place::Removable;
}

bool DriveRules::IsDriveRoot(const std::string& path) const {
    return EqualNoCase(path, DriveOf(path)) && !InMediaFolder(path);
}

bool DriveRules::InMediaFolder(const std::string& path) const {
    return LiesBelow(path, settings_.values.MediaDir);
}

std::vector<std::string> DriveRules::RemovableDrives() const {
    const std::vector<std::string> taken = {DriveOf(settings_.values.MediaDir), DiscDrive(),
                                            DriveOf(settings_.AppDir())};
    std::vector<std::string> offered;
    for (const Drive& drive : volumes_.Drives()) {
        const bool kind = drive.type == DriveType::Removable || drive.type == DriveType::Fixed;
        const auto same = [&](const std::string& root) { return EqualNoCase(root, drive.root); };
        if (kind && !InMediaFolder(drive.root) && std::ranges::none_of(taken, same))
            offered.push_back(drive.root);
    }
    return offered;
}

} // namespace vk
