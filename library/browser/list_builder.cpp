#include "library/browser/list_builder.h"

#include "core/text.h"
#include "library/browser/list_modes.h"
#include "platform/paths.h"

namespace vk {

void ListBuilder::SetTitle(const std::string& title) {
    title_ = title;
    view_.SetTitle(title);
}

bool ListBuilder::Pulse() {
    needs_.clock.DoEvents();
    needs_.app.ListBusy = true; // whatever ran may have finished a list of its own
    return !aborted_;
}

bool ListBuilder::CheckDisc() {
    needs_.app.CDReady = drives_.HasDiscDrive() && needs_.volumes.IsReady(drives_.DiscDrive());
    return needs_.app.CDReady;
}

void ListBuilder::Start() {
    needs_.app.ListBusy = true;
    ParentName.clear();
    PlaylistView = false;
    list_.numberedList = needs_.settings.values.numberedList;
    rows_.Clear();
}

void ListBuilder::Finish() {
    list_.LoadList();
    view_.ReDrawList();
    view_.HideLoading();
}

void ListBuilder::MarkPlace(const std::string& path) {
    const Place place = drives_.PlaceOf(path);
    BrowsingCD = place == Place::Disc;
    BrowsingRemovable = place == Place::Removable;
    if (BrowsingCD) view_.ShowLoading("Reading CD/DVD");
    if (BrowsingRemovable) view_.ShowLoading("Reading removable drive " + drives_.DriveOf(path));
}

std::string ListBuilder::ParentOf(const std::string& folder) const {
    const std::string top = needs_.MediaDir();
    return folder == top || drives_.IsDriveRoot(folder) ? top : FolderOf(folder);
}

bool ListBuilder::Showable(const std::string& path) const {
    return IsShowable(needs_.app, needs_.state.ListMode, path);
}

bool ListBuilder::AddCatalogueFiles(const std::vector<CatalogueFile>& files) {
    std::int32_t number = 0;
    for (const CatalogueFile& file : files) {
        if (!Pulse()) break;
        if (Showable(JoinPath(needs_.MediaDir(), file.path)))
            rows_.AddFileRow(++number, file.artist, file.title, file.path, false);
    }
    return !files.empty();
}

bool ListBuilder::AddPlainFiles(const std::vector<std::string>& files) {
    std::int32_t number = 0;
    for (const std::string& path : files) {
        if (!Pulse()) break;
        TagRecord tag;
        ++number;
        if (OtherDrive() && EqualNoCase(ExtensionOf(path), "cda"))
            tag.Title = "CD Audio Track #" + std::to_string(number);
        else
            tag = needs_.tags.GetDBTag(path);
        rows_.AddFileRow(number, tag.Artist, tag.Title, path, true);
    }
    return !files.empty();
}

} // namespace vk
