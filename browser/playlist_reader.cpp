#include "browser/playlist_reader.h"

#include "core/text.h"
#include "library/lists/list_file.h"
#include "library/lists/playlist.h"
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

// Returns how many of its files are there; what is not found is told once, not line by line.
std::int32_t PlaylistReader::AddEntries(const std::string& path) {
    std::int32_t number = 0;
    std::size_t missing = 0;
    EntryResolver resolver(FolderOf(path));
    for (const PlaylistLine& line : ParsePlaylist(ReadListText(path)).lines) {
        if (!desk_.Pulse(static_cast<std::size_t>(number))) return number;
        if (IsStreamAddress(line.text)) {
            const std::string& title = line.title.empty() ? line.text : line.title;
            desk_.rows.AddFileRow(++number, "", ToUtf8(title), line.text, true);
            continue;
        }
        const std::string file = resolver.Resolve(line.text);
        if (file.empty()) {
            missing += !line.comment;
            continue;
        }
        const TagRecord tag = desk_.needs.library.tags.GetDBTag(file);
        desk_.rows.AddFileRow(++number, tag.Artist, tag.Title, file, true);
    }
    if (missing > 0) desk_.Say(FilesMissing(missing, false));
    return number;
}

} // namespace vk
