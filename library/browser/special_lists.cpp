// Folders with all that is below them, playlists and the applications.
#include "core/text.h"
#include "library/browser/list_builder.h"
#include "library/list_file.h"
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
    for (const FolderEntry& entry : ListFolder(plain)) {
        if (!Pulse()) return;
        const std::string full = JoinPath(plain, entry.name);
        if (entry.isFolder)
            Recurse(full, files, seen);
        else if (Showable(full))
            files.push_back(full);
    }
}

void ListBuilder::RecurseFolder(const std::string& path) {
    MarkPlace(path);
    Start();
    rows_.AddBack(ParentOf(path));
    SetTitle((BrowsingCD ? "Recurse CD/DVD: " : "Recurse Folder: ") + ShownName(FileNameOf(path)));
    bool found = false;
    if (needs_.CatalogueOnLine() && !OtherDrive()) {
        found = AddCatalogueFiles(needs_.catalogue->FilesBelow(path));
    } else {
        std::vector<std::string> files;
        std::set<std::string> seen;
        Recurse(path, files, seen);
        ShellSortVariantArray(files);
        found = AddPlainFiles(files);
    }
    if (!found) rows_.AddNotice("No Supported Media Found", alertPic);
    Finish();
}

void ListBuilder::ReadList(const std::string& path) {
    Start();
    PlaylistView = true;
    if (!EqualNoCase(FileNameOf(path), "favorites.m3u")) rows_.AddBack(needs_.MediaDir());
    std::int32_t number = 0;
    for (const std::string& file : ReadListFile(path)) {
        if (!Pulse()) break;
        const TagRecord tag = needs_.tags.GetDBTag(file);
        rows_.AddFileRow(++number, tag.Artist, tag.Title, file, true);
    }
    if (number == 0) {
        rows_.Clear();
        rows_.AddBack(BrowsingCD ? needs_.state.CurrentPath : needs_.MediaDir());
        rows_.AddNotice("<No Valid Filenames in the Playlist>");
    }
    Finish();
}

void ListBuilder::PopulateApplications() {
    Start();
    SetTitle("External Applications");
    const auto lines = ListLines(ReadWholeFile(needs_.settings.File("apps.lst")).value_or(""));
    for (const std::string& line : lines) {
        const std::vector<std::string> fields = Split(line, '|');
        const bool named = fields.size() > 1 && !fields[1].empty();
        rows_.Add(ToUtf8(named ? fields[1] : fields[0]), line, "");
    }
    if (lines.empty()) rows_.AddNotice("You have no applications configured");
    Finish();
}

} // namespace vk
