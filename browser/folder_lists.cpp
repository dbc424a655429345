#include "browser/folder_lists.h"

#include "browser/disc_video.h"
#include "core/error_report.h"
#include "core/text.h"
#include "library/sort.h"
#include "library/tags/media_type.h"
#include "platform/files.h"
#include "platform/paths.h"

#include <filesystem>

namespace vk {

namespace {

// The folder behind all links, by which a link that leads back up is known.
std::string RealFolder(const std::string& folder) {
    std::error_code failed;
    const auto real = std::filesystem::canonical(folder, failed);
    return failed ? folder : real.string();
}

} // namespace

void FolderLists::Populate() {
    if (place_.Drives().HasDiscDrive()) desk_.ShowBusy("Checking CD Rom");
    place_.CheckDisc();
    desk_.ShowBusy("Busy");
    FindFolder();
    const std::string path = desk_.needs.state.CurrentPath;
    place_.Mark(path);
    Title(path);
    AddFolder(path);
}

void FolderLists::FindFolder() {
    std::string& path = desk_.needs.state.CurrentPath;
    path = WithoutTrailingSeparator(path);
    if (place_.AtTop() || place_.IsThere(path)) return;
    desk_.needs.base.report.Log("the folder " + ToUtf8(path) + " is gone");
    path = desk_.needs.MediaDir();
}

void FolderLists::AddFolder(const std::string& path) {
    desk_.Start();
    desk_.list.HideDupes = desk_.needs.Options().hideDupeArtist;
    if (place_.AtTop())
        top_.Add();
    else
        desk_.rows.AddBack(place_.ParentOf(path));
    Contents contents = Walk(path);
    AddTracks(path, contents.files);
    ShellSortVariantArray(contents.folders);
    ShellSortVariantArray(contents.files);
    for (const std::string& folder : contents.folders)
        desk_.rows.AddFolderRow(folder);
    AddFiles(contents);
    desk_.Finish();
}

void FolderLists::Title(const std::string& path) {
    if (place_.BrowsingCD)
        desk_.SetTitle("Browsing CD/DVD ROM: " + place_.DiscLabel());
    else if (place_.BrowsingRemovable)
        desk_.SetTitle("Browsing removable drive: " + ToUtf8(place_.Drives().DriveOf(path)));
    else
        desk_.SetTitle(
            (desk_.Building() ? "Building Playlist | " : "") +
            (place_.AtTop() ? "Browse By Directory " : " " + ShownName(FileNameOf(path))));
}

// Ends the walk when it returns true.
bool FolderLists::TakeDiscVideo(const std::string& path, const std::string& name,
                                Contents& contents) {
    const auto video = RecogniseDiscVideo(path, name);
    if (!video) return false;
    if (video->descriptor == Descriptor{}) return true;
    desk_.rows.Add(video->name + place_.DiscLabel(), video->descriptor, dvdpic);
    contents.folders.clear();
    contents.discRow = true;
    return true;
}

FolderLists::Contents FolderLists::Walk(const std::string& path) {
    Contents contents;
    for (const FolderEntry& entry : ListFolder(path, [&] { return desk_.Pulse(); })) {
        if (desk_.Aborted()) break;
        if (IsSystemName(entry.name)) continue;
        const std::string full = JoinPath(path, entry.name);
        if (!entry.isFolder) {
            if (desk_.Showable(full)) contents.files.push_back(full);
        } else if (place_.BrowsingCD && TakeDiscVideo(path, entry.name, contents)) {
            break;
        } else {
            contents.folders.push_back(full);
        }
    }
    return contents;
}

// The tracks of an audio disc stand for files of the kind that their names tell.
void FolderLists::AddTracks(const std::string& path, std::vector<std::string>& files) const {
    for (const std::string& track : place_.AudioTracks(path))
        if (desk_.Accepts(track)) files.push_back(track);
}

// Nothing when the folder itself is to be read, as when the catalogue fails.
std::optional<std::vector<CatalogueFile>> FolderLists::CataloguedFiles() {
    if (!desk_.needs.CatalogueOnLine() || place_.OtherDrive()) return std::nullopt;
    std::optional<std::vector<CatalogueFile>> files;
    TrapAndLog(desk_.needs.base.report, "An error occured in playlists.Populate ", [&] {
        files = desk_.needs.library.catalogue->FolderFiles(
            desk_.needs.state.CurrentPath, desk_.needs.state.ListMode == ListFromAudio,
            desk_.needs.Options().SortByFilename);
    });
    return files;
}

void FolderLists::AddFiles(const Contents& contents) {
    const auto known = CataloguedFiles();
    const bool found = known ? desk_.AddCatalogueFiles(*known) > 0 : AddPlainFiles(contents.files);
    if (known && found) desk_.ParentName = desk_.Title();
    if (!found && !place_.AtTop() && !contents.discRow)
        desk_.AddEmptyNotice(NothingFound, alertPic);
}

bool FolderLists::AddPlainFiles(const std::vector<std::string>& files) {
    std::int32_t number = 0;
    for (const std::string& path : files) {
        if (!desk_.Pulse(static_cast<std::size_t>(number))) break;
        TagRecord tag;
        ++number;
        if (place_.OtherDrive() && EqualNoCase(ExtensionOf(path), "cda"))
            tag.Title = "CD Audio Track #" + std::to_string(number);
        else
            tag = desk_.needs.library.tags.GetDBTag(path);
        desk_.rows.AddFileRow(number, tag.Artist, tag.Title, path, true);
    }
    return !files.empty();
}

void FolderLists::Recurse(const std::string& folder, std::vector<std::string>& files,
                          std::set<std::string>& seen) {
    if (!seen.insert(RealFolder(folder)).second) return;
    const std::string plain = WithoutTrailingSeparator(folder);
    const auto pulse = [&] { return desk_.Pulse(files.size()); };
    for (const FolderEntry& entry : ListFolder(plain, pulse)) {
        if (!pulse()) return;
        if (IsSystemName(entry.name)) continue;
        const std::string full = JoinPath(plain, entry.name);
        if (entry.isFolder)
            Recurse(full, files, seen);
        else if (desk_.Showable(full))
            files.push_back(full);
    }
}

bool FolderLists::AddBelow(const std::string& path) {
    if (desk_.needs.CatalogueOnLine() && !place_.OtherDrive())
        return desk_.AddCatalogueFiles(desk_.needs.library.catalogue->FilesBelow(path)) > 0;
    std::vector<std::string> files;
    std::set<std::string> seen;
    Recurse(path, files, seen);
    AddTracks(path, files);
    ShellSortVariantArray(files);
    return AddPlainFiles(files);
}

void FolderLists::RecurseFolder(const std::string& path) {
    desk_.ShowBusy("Busy");
    place_.Mark(path);
    desk_.Start();
    desk_.rows.AddBack(place_.ParentOf(path));
    desk_.SetTitle((place_.BrowsingCD ? "Recurse CD/DVD: " : "Recurse Folder: ") +
                   ShownName(FileNameOf(path)));
    bool found = false;
    const bool whole = desk_.Try("RecurseFolder", [&] { found = AddBelow(path); });
    if (whole && !found) desk_.rows.AddNotice(NothingFound, alertPic);
    desk_.Finish();
}

} // namespace vk
