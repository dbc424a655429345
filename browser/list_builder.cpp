#include "browser/list_builder.h"

#include "core/text.h"
#include "platform/paths.h"

namespace vk {

bool ListBuilder::CheckDisc() {
    drives_.FindDisc();
    desk_.needs.app.CDReady =
        drives_.HasDiscDrive() && desk_.needs.volumes.IsReady(drives_.DiscDrive());
    return desk_.needs.app.CDReady;
}

void ListBuilder::MarkPlace(const std::string& path) {
    const Place place = drives_.PlaceOf(path);
    BrowsingCD = place == Place::Disc;
    BrowsingRemovable = place == Place::Removable;
    if (BrowsingCD) desk_.ShowBusy("Reading CD/DVD");
    if (BrowsingRemovable) desk_.ShowBusy("Reading removable drive " + drives_.DriveOf(path));
}

std::string ListBuilder::ParentOf(const std::string& folder) const {
    const std::string top = desk_.needs.MediaDir();
    return folder == top || drives_.IsDriveRoot(folder) ? top : FolderOf(folder);
}

bool ListBuilder::AddPlainFiles(const std::vector<std::string>& files) {
    std::int32_t number = 0;
    for (const std::string& path : files) {
        if (!desk_.Pulse(static_cast<std::size_t>(number))) break;
        TagRecord tag;
        ++number;
        if (OtherDrive() && EqualNoCase(ExtensionOf(path), "cda"))
            tag.Title = "CD Audio Track #" + std::to_string(number);
        else
            tag = desk_.needs.tags.GetDBTag(path);
        desk_.rows.AddFileRow(number, tag.Artist, tag.Title, path, true);
    }
    return !files.empty();
}

} // namespace vk
