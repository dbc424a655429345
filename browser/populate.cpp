// The list of one folder.
#include "browser/disc_video.h"
#include "browser/list_builder.h"
#include "core/error_report.h"
#include "core/text.h"
#include "library/sort.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

void ListBuilder::Populate() {
    if (desk_.needs.state.ListMode == ListApplications) return PopulateApplications();
    if (drives_.HasDiscDrive()) desk_.ShowBusy("Checking CD Rom");
    CheckDisc();
    desk_.ShowBusy("Busy");
    desk_.needs.state.CurrentPath = WithoutTrailingSeparator(desk_.needs.state.CurrentPath);
    if (!AtTop() && !FolderExists(desk_.needs.state.CurrentPath)) {
        desk_.needs.report.Log("the folder " + ToUtf8(desk_.needs.state.CurrentPath) + " is gone");
        desk_.needs.state.CurrentPath = desk_.needs.MediaDir();
    }
    PopulateFolder();
}

void ListBuilder::PopulateFolder() {
    const std::string path = desk_.needs.state.CurrentPath;
    MarkPlace(path);
    TitleFolder(path);
    desk_.Start();
    desk_.list.HideDupes = desk_.needs.settings.values.hideDupeArtist;
    if (AtTop())
        AddTopRows();
    else
        desk_.rows.AddBack(ParentOf(path));
    Contents contents = Walk(path);
    ShellSortVariantArray(contents.folders);
    ShellSortVariantArray(contents.files);
    for (const std::string& folder : contents.folders)
        desk_.rows.AddFolderRow(folder);
    AddFiles(contents);
    desk_.Finish();
}

void ListBuilder::TitleFolder(const std::string& path) {
    if (BrowsingCD)
        desk_.SetTitle("Browsing CD/DVD ROM: " +
                       ToUtf8(desk_.needs.volumes.Label(drives_.DiscDrive())));
    else if (BrowsingRemovable)
        desk_.SetTitle("Browsing removable drive: " + ToUtf8(drives_.DriveOf(path)));
    else
        desk_.SetTitle((desk_.Building() ? "Building Playlist | " : "") +
                       (AtTop() ? "Browse By Directory " : " " + ShownName(FileNameOf(path))));
}

// Ends the walk when it returns true.
bool ListBuilder::TakeDiscVideo(const std::string& path, const std::string& name,
                                Contents& contents) {
    const auto video = RecogniseDiscVideo(path, name);
    if (!video) return false;
    if (video->descriptor.empty()) return true;
    desk_.rows.Add(video->name + ToUtf8(desk_.needs.volumes.Label(drives_.DiscDrive())),
                   video->descriptor, dvdpic);
    contents.folders.clear();
    contents.discRow = true;
    return true;
}

ListBuilder::Contents ListBuilder::Walk(const std::string& path) {
    Contents contents;
    for (const FolderEntry& entry : ListFolder(path, [&] { return desk_.Pulse(); })) {
        if (desk_.Aborted()) break;
        const std::string full = JoinPath(path, entry.name);
        if (!entry.isFolder) {
            if (desk_.Showable(full)) contents.files.push_back(full);
        } else if (BrowsingCD && TakeDiscVideo(path, entry.name, contents)) {
            break;
        } else {
            contents.folders.push_back(full);
        }
    }
    return contents;
}

// Nothing when the folder itself is to be read, as when the catalogue fails.
std::optional<std::vector<CatalogueFile>> ListBuilder::CataloguedFiles() {
    if (!desk_.needs.CatalogueOnLine() || OtherDrive()) return std::nullopt;
    std::optional<std::vector<CatalogueFile>> files;
    TrapAndLog(desk_.needs.report, "An error occured in playlists.Populate ", [&] {
        files = desk_.needs.catalogue->FolderFiles(desk_.needs.state.CurrentPath,
                                                   desk_.needs.state.ListMode == ListFromAudio,
                                                   desk_.needs.settings.values.SortByFilename);
    });
    return files;
}

void ListBuilder::AddFiles(const Contents& contents) {
    const auto known = CataloguedFiles();
    const bool found = known ? desk_.AddCatalogueFiles(*known) > 0 : AddPlainFiles(contents.files);
    if (known && found) desk_.ParentName = desk_.Title();
    if (!found && !AtTop() && !contents.discRow) desk_.AddEmptyNotice(NothingFound, alertPic);
}

} // namespace vk
