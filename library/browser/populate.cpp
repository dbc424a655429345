// The list of one folder.
#include "core/text.h"
#include "library/browser/disc_video.h"
#include "library/browser/list_builder.h"
#include "library/sort.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

void ListBuilder::Populate() {
    list_.HideDupes = false;
    if (needs_.state.ListMode == ListApplications) return PopulateApplications();
    if (drives_.HasDiscDrive()) view_.ShowLoading("Checking CD Rom");
    CheckDisc();
    view_.ShowLoading("Busy");
    needs_.state.CurrentPath = WithoutTrailingSeparator(needs_.state.CurrentPath);
    if (!AtTop() && !FolderExists(needs_.state.CurrentPath)) {
        needs_.report.Log("the folder " + ToUtf8(needs_.state.CurrentPath) + " is gone");
        needs_.state.CurrentPath = needs_.MediaDir();
    }
    PopulateFolder();
}

void ListBuilder::PopulateFolder() {
    const std::string path = needs_.state.CurrentPath;
    MarkPlace(path);
    TitleFolder(path);
    Start();
    list_.HideDupes = needs_.settings.values.hideDupeArtist;
    if (AtTop())
        AddTopRows();
    else
        rows_.AddBack(ParentOf(path));
    Contents contents = Walk(path);
    ShellSortVariantArray(contents.folders);
    ShellSortVariantArray(contents.files);
    for (const std::string& folder : contents.folders)
        rows_.AddFolderRow(folder);
    AddFiles(contents);
    Finish();
}

void ListBuilder::TitleFolder(const std::string& path) {
    if (BrowsingCD)
        SetTitle("Browsing CD/DVD ROM: " + ToUtf8(needs_.volumes.Label(drives_.DiscDrive())));
    else if (BrowsingRemovable)
        SetTitle("Browsing removable drive: " + ToUtf8(drives_.DriveOf(path)));
    else
        SetTitle(AtTop() ? "Browse By Directory " : " " + ShownName(FileNameOf(path)));
}

// Ends the walk when it returns true.
bool ListBuilder::TakeDiscVideo(const std::string& path, const std::string& name,
                                Contents& contents) {
    const auto video = RecogniseDiscVideo(path, name);
    if (!video) return false;
    if (video->descriptor.empty()) return true;
    rows_.Add(video->name + ToUtf8(needs_.volumes.Label(drives_.DiscDrive())), video->descriptor,
              dvdpic);
    contents.folders.clear();
    contents.discRow = true;
    return true;
}

ListBuilder::Contents ListBuilder::Walk(const std::string& path) {
    Contents contents;
    for (const FolderEntry& entry : ListFolder(path, [&] { return Pulse(); })) {
        if (aborted_) break;
        const std::string full = JoinPath(path, entry.name);
        if (!entry.isFolder) {
            if (Showable(full)) contents.files.push_back(full);
        } else if (BrowsingCD && TakeDiscVideo(path, entry.name, contents)) {
            break;
        } else {
            contents.folders.push_back(full);
        }
    }
    return contents;
}

void ListBuilder::AddFiles(const Contents& contents) {
    bool found = false;
    if (needs_.CatalogueOnLine() && !OtherDrive()) {
        found = AddCatalogueFiles(needs_.catalogue->FolderFiles(
            needs_.state.CurrentPath, needs_.state.ListMode == ListFromAudio,
            needs_.settings.values.SortByFilename));
        if (found) ParentName = title_;
    } else {
        found = AddPlainFiles(contents.files);
    }
    if (!found && !AtTop() && !contents.discRow)
        rows_.AddNotice("No Supported Media Found", alertPic);
}

} // namespace vk
