// Folders with all that is below them, playlists and the applications.
#include "browser/list_builder.h"
#include "core/text.h"
#include "library/lists/list_file.h"
#include "library/sort.h"
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

void ListBuilder::Recurse(const std::string& folder, std::vector<std::string>& files,
                          std::set<std::string>& seen) {
    if (!seen.insert(RealFolder(folder)).second) return;
    const std::string plain = WithoutTrailingSeparator(folder);
    const auto pulse = [&] { return desk_.Pulse(files.size()); };
    for (const FolderEntry& entry : ListFolder(plain, pulse)) {
        if (!pulse()) return;
        const std::string full = JoinPath(plain, entry.name);
        if (entry.isFolder)
            Recurse(full, files, seen);
        else if (desk_.Showable(full))
            files.push_back(full);
    }
}

void ListBuilder::RecurseFolder(const std::string& path) {
    desk_.ShowBusy("Busy");
    MarkPlace(path);
    desk_.Start();
    desk_.rows.AddBack(ParentOf(path));
    desk_.SetTitle((BrowsingCD ? "Recurse CD/DVD: " : "Recurse Folder: ") +
                   ShownName(FileNameOf(path)));
    bool found = false;
    const bool whole = desk_.Try("RecurseFolder", [&] {
        if (desk_.needs.CatalogueOnLine() && !OtherDrive()) {
            found = desk_.AddCatalogueFiles(desk_.needs.catalogue->FilesBelow(path));
        } else {
            std::vector<std::string> files;
            std::set<std::string> seen;
            Recurse(path, files, seen);
            ShellSortVariantArray(files);
            found = AddPlainFiles(files);
        }
    });
    if (whole && !found) desk_.rows.AddNotice(NothingFound, alertPic);
    desk_.Finish();
}

void ListBuilder::AddEditRow(const std::string& path) {
    if (!desk_.Building()) desk_.rows.Add("<Edit This List>", "EDIT:" + path, playlistpic);
}

void ListBuilder::ReadList(const std::string& path) {
    desk_.Start();
    desk_.PlaylistView = true;
    if (!EqualNoCase(FileNameOf(path), "favorites.m3u"))
        desk_.rows.AddBackTo(desk_.SqlView ? "SQL:BrowsePlaylist"
                                           : "PATH:" + desk_.needs.MediaDir());
    AddEditRow(path);
    std::int32_t number = 0;
    const bool whole = desk_.Try("ReadList", [&] { number = AddEntries(path); });
    if (whole && number == 0) {
        desk_.rows.Clear();
        desk_.rows.AddBack(BrowsingCD ? desk_.needs.state.CurrentPath : desk_.needs.MediaDir());
        AddEditRow(path);
        desk_.rows.AddNotice(NoValidFilenames);
    }
    desk_.Finish();
}

// Returns how many of its files are there.
std::int32_t ListBuilder::AddEntries(const std::string& path) {
    std::int32_t number = 0;
    ForEachListLine(ReadListText(path), [&](const std::string& line) {
        if (!desk_.Pulse(static_cast<std::size_t>(number))) return false;
        const std::string file = ResolveListEntry(line, FolderOf(path));
        if (file.empty()) return true;
        const TagRecord tag = desk_.needs.tags.GetDBTag(file);
        desk_.rows.AddFileRow(++number, tag.Artist, tag.Title, file, true);
        return true;
    });
    return number;
}

void ListBuilder::PopulateApplications() {
    desk_.Start();
    desk_.SetTitle("External Applications");
    const auto lines = ListLines(ReadWholeFile(desk_.needs.settings.File("apps.lst")).value_or(""));
    for (const std::string& line : lines) {
        const std::vector<std::string> fields = Split(line, '|');
        const bool named = fields.size() > 1 && !fields[1].empty();
        desk_.rows.Add(ToUtf8(named ? fields[1] : fields[0]), line, "");
    }
    if (lines.empty()) desk_.rows.AddNotice("You have no applications configured");
    desk_.Finish();
}

} // namespace vk
