#include "browser/playlist_reader.h"

#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

void PlaylistReader::AddEditRow(const std::string& path) {
    if (!desk_.Building()) desk_.rows.AddEdit(path);
}

void PlaylistReader::ReadList(const std::string& path) {
    desk_.Start();
    desk_.PlaylistView = true;
    if (!EqualNoCase(FileNameOf(path), "favorites.m3u"))
        desk_.rows.AddBackTo(desk_.SqlView ? Descriptor::Sql("BrowsePlaylist")
                                           : Descriptor::Path(desk_.needs.MediaDir()));
    AddEditRow(path);
    std::int32_t number = 0;
    const bool whole = desk_.Try("ReadList", [&] { number = AddEntries(path); });
    if (whole && number == 0) {
        desk_.rows.Clear();
        desk_.rows.AddBack(place_.BrowsingCD ? desk_.needs.state.CurrentPath
                                             : desk_.needs.MediaDir());
        AddEditRow(path);
        desk_.rows.AddNotice(NoValidFilenames);
    }
    desk_.Finish();
}

// Returns how many of its files are there.
std::int32_t PlaylistReader::AddEntries(const std::string& path) {
    std::int32_t number = 0;
    ForEachListLine(ReadListText(path), [&](const std::string& line) {
        if (!desk_.Pulse(static_cast<std::size_t>(number))) return false;
        const std::string file = ResolveListEntry(line, FolderOf(path));
        if (file.empty()) return true;
        const TagRecord tag = desk_.needs.library.tags.GetDBTag(file);
        desk_.rows.AddFileRow(++number, tag.Artist, tag.Title, file, true);
        return true;
    });
    return number;
}

} // namespace vk
