#include "browser/sql_lists.h"

#include "browser/album_marker.h"
#include "library/queries/sql_text.h"

#include <algorithm>
#include <array>

namespace vk {

/// A list by the body of its descriptor; a failure is reported under `name`.
struct SqlLists::List {
    const char* body;
    const char* name;
    Adder add;
};

const SqlLists::List* SqlLists::Find(const std::string& body) {
    static constexpr std::array<List, 8> lists = {{
        {"BrowseAll", "BrowseAll", &SqlLists::BrowseAll},
        {"BrowseArtist", "BrowseArtist", &SqlLists::BrowseArtist},
        {"BrowseGenre", "BrowseGenre", &SqlLists::BrowseGenre},
        {"BrowsePlaylist", "BrowsePlaylists", &SqlLists::BrowsePlaylists},
        {"BrowseMusic", "BrowseMusic", &SqlLists::BrowseMusic},
        {"BrowseVideo", "BrowseVideo", &SqlLists::BrowseVideo},
        {"BrowseNewMusic", "BrowseNewMusic", &SqlLists::BrowseNewMusic},
        {"TextSearch", "TextSearch", &SqlLists::TextSearch},
    }};
    const auto found = std::ranges::find(lists, body, &List::body);
    return found == lists.end() ? nullptr : found;
}

void SqlLists::Show(const RowDescriptor& row, const std::string& chosen) {
    chosen_ = chosen;
    desk_.Start();
    desk_.rows.AddBackTo(BackOf(row));
    if (const List* list = Find(row.body))
        desk_.Try(list->name, [&] { (this->*list->add)(row.argument); });
    desk_.Finish();
}

// From an album to the albums, from those to the artist's titles.
std::string SqlLists::BackOf(const RowDescriptor& row) const {
    if (row.body == "BrowseAll") return "PATH:" + desk_.needs.MediaDir();
    if (row.argument.empty()) return "SQL:BrowseAll";
    const std::string list = "SQL:" + row.body;
    const auto marker = FindAlbumMarker(row.argument);
    if (marker == std::string::npos) return list;
    const std::string condition = list + "|" + BeforeAlbumMarker(row.argument);
    return EndsInAlbumMarker(row.argument) ? condition : condition + AlbumMarker;
}

void SqlLists::SetTitle(const std::string& browsing, const std::string& building) {
    desk_.SetTitle(desk_.Building() ? building : browsing);
}

void SqlLists::AddMenu(const std::string& text, const std::string& body) {
    desk_.rows.Add(text, "SQL:" + body, searchpic);
}

void SqlLists::BrowseAll(const std::string&) {
    SetTitle("Browse Database ", "Build Playlist | Browse Database ");
    AddMenu("---Browse by Artist---", "BrowseArtist");
    AddMenu("---Browse by Genre---", "BrowseGenre");
    if (!desk_.Building()) AddMenu("---Browse All Playlists---", "BrowsePlaylist");
    AddMenu("---Browse All Music---", "BrowseMusic");
    if (!desk_.Building()) AddMenu("---Browse All Video---", "BrowseVideo");
    AddMenu("---Browse New Music---", "BrowseNewMusic");
    AddMenu("---Text Search Options---", "TextSearch");
}

void SqlLists::TextSearch(const std::string&) {
    desk_.SetTitle("Text Search Options ");
    AddMenu("---Search by Title---", "SearchTitle");
    AddMenu("---Search by Artist---", "SearchArtist");
    AddMenu("---Search by Genre---", "SearchGenre");
    AddMenu("---Search by Filename---", "SearchPath");
}

void SqlLists::BrowseGenre(const std::string& argument) {
    if (!argument.empty()) {
        desk_.SetTitle(chosen_);
        return AddFiles("SELECT Path, Artist, Title FROM Media WHERE " + argument);
    }
    SetTitle("Browsing by Genre ", "Building Playlist | Browsing by Genre ");
    const auto genres = desk_.needs.catalogue->Records(
        "SELECT Description, GenreID FROM Genres WHERE Description <> '(Empty)'"
        " ORDER BY Description");
    for (const CatalogueRecord& genre : genres) {
        if (!desk_.Pulse()) return;
        desk_.rows.Add(Unescape(genre.at(0)), "SQL:BrowseGenre|GenreID=" + genre.at(1), "");
    }
}

void SqlLists::BrowsePlaylists(const std::string&) {
    desk_.SetTitle("Browsing Playlists ");
    auto playlists = desk_.needs.catalogue->Files(
        "SELECT Path, Title FROM Media WHERE MediaType=3 ORDER BY Title");
    if (desk_.AddCatalogueFiles(playlists) == 0) desk_.AddEmptyNotice("No Playlists Found");
}

void SqlLists::BrowseMusic(const std::string&) {
    SetTitle("All Music ", "Build Playlist | All Music ");
    AddFiles("SELECT Path, Artist, Title FROM Media WHERE MediaType=1 ORDER BY Artist, Title");
}

void SqlLists::BrowseVideo(const std::string&) {
    desk_.SetTitle("All Movies ");
    AddFiles("SELECT Path, Artist, Title FROM Media WHERE MediaType=2");
}

void SqlLists::BrowseNewMusic(const std::string&) {
    SetTitle("New Music ", "Build Playlist | New Music ");
    const int count = std::max<int>(0, desk_.needs.settings.values.TopNewCount);
    AddFiles("SELECT TOP " + std::to_string(count) +
             " Path, Artist, Title, TStamp FROM Media WHERE MediaType=1 ORDER BY TStamp DESC");
}

// A row for each record of one column: its text, and between `descriptor` and `end` what is stored.
void SqlLists::AddRecords(const std::string& sql, const std::string& descriptor,
                          const std::string& end) {
    for (const CatalogueRecord& record : desk_.needs.catalogue->Records(sql)) {
        if (!desk_.Pulse()) return;
        desk_.rows.Add(Unescape(record.at(0)), descriptor + record.at(0) + end, "");
    }
    if (desk_.list.ItemCount() == 1) desk_.AddEmptyNotice(NothingFound, alertPic);
}

void SqlLists::AddFiles(const std::string& sql) {
    desk_.list.HideDupes = desk_.needs.settings.values.hideDupeArtist;
    int number = 0;
    desk_.needs.catalogue->EachFile(
        sql, [&](const CatalogueFile& file) { return desk_.AddCatalogueFile(file, number); });
    if (number == 0) desk_.AddEmptyNotice(NothingFound, alertPic);
}

} // namespace vk
