#include "browser/sql_lists.h"

#include "browser/album_marker.h"
#include "browser/artist_browse.h"
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

void SqlLists::Show(const Descriptor& row, const std::string& chosen) {
    chosen_ = chosen;
    desk_.Start();
    desk_.rows.AddBackTo(BackOf(row));
    if (const List* list = Find(row.body))
        desk_.Try(list->name, [&] { (this->*list->add)(row.argument); });
    desk_.Finish();
}

// From an album to the albums, from those to the artist's titles.
Descriptor SqlLists::BackOf(const Descriptor& row) const {
    if (row.body == "BrowseAll") return Descriptor::Path(desk_.needs.MediaDir());
    if (row.argument.empty()) return Descriptor::Sql("BrowseAll");
    if (FindAlbumMarker(row.argument) == std::string::npos) return Descriptor::Sql(row.body);
    const std::string titles = BeforeAlbumMarker(row.argument);
    return Descriptor::Sql(row.body,
                           EndsInAlbumMarker(row.argument) ? titles : titles + AlbumMarker);
}

void SqlLists::BrowseArtist(const std::string& argument) {
    vk::BrowseArtist(rows_, argument);
}

void SqlLists::BrowseAll(const std::string&) {
    rows_.SetTitle("Browse Database ", "Build Playlist | Browse Database ");
    rows_.AddMenu("---Browse by Artist---", Descriptor::Sql("BrowseArtist"));
    rows_.AddMenu("---Browse by Genre---", Descriptor::Sql("BrowseGenre"));
    if (!desk_.Building())
        rows_.AddMenu("---Browse All Playlists---", Descriptor::Sql("BrowsePlaylist"));
    rows_.AddMenu("---Browse All Music---", Descriptor::Sql("BrowseMusic"));
    if (!desk_.Building()) rows_.AddMenu("---Browse All Video---", Descriptor::Sql("BrowseVideo"));
    rows_.AddMenu("---Browse New Music---", Descriptor::Sql("BrowseNewMusic"));
    rows_.AddMenu("---Text Search Options---", Descriptor::Sql("TextSearch"));
}

void SqlLists::TextSearch(const std::string&) {
    desk_.SetTitle("Text Search Options ");
    rows_.AddMenu("---Search by Title---", Descriptor::Sql("SearchTitle"));
    rows_.AddMenu("---Search by Artist---", Descriptor::Sql("SearchArtist"));
    rows_.AddMenu("---Search by Genre---", Descriptor::Sql("SearchGenre"));
    rows_.AddMenu("---Search by Filename---", Descriptor::Sql("SearchPath"));
}

void SqlLists::BrowseGenre(const std::string& argument) {
    if (!argument.empty()) {
        desk_.SetTitle(chosen_);
        return rows_.AddFiles("SELECT Path, Artist, Title FROM Media WHERE " + argument);
    }
    rows_.SetTitle("Browsing by Genre ", "Building Playlist | Browsing by Genre ");
    const auto genres = desk_.needs.library.catalogue->Records(
        "SELECT Description, GenreID FROM Genres WHERE Description <> '(Empty)'"
        " ORDER BY Description");
    for (const CatalogueRecord& genre : genres) {
        if (!desk_.Pulse()) return;
        desk_.rows.Add(Unescape(genre.at(0)),
                       Descriptor::Sql("BrowseGenre", "GenreID=" + genre.at(1)));
    }
}

void SqlLists::BrowsePlaylists(const std::string&) {
    desk_.SetTitle("Browsing Playlists ");
    auto playlists = desk_.needs.library.catalogue->Files(
        "SELECT Path, Title FROM Media WHERE MediaType=3 ORDER BY Title");
    if (desk_.AddCatalogueFiles(playlists) == 0) desk_.AddEmptyNotice("No Playlists Found");
}

void SqlLists::BrowseMusic(const std::string&) {
    rows_.SetTitle("All Music ", "Build Playlist | All Music ");
    rows_.AddFiles(
        "SELECT Path, Artist, Title FROM Media WHERE MediaType=1 ORDER BY Artist, Title");
}

void SqlLists::BrowseVideo(const std::string&) {
    desk_.SetTitle("All Movies ");
    rows_.AddFiles("SELECT Path, Artist, Title FROM Media WHERE MediaType=2");
}

void SqlLists::BrowseNewMusic(const std::string&) {
    rows_.SetTitle("New Music ", "Build Playlist | New Music ");
    const int count = std::max<int>(0, desk_.needs.Options().TopNewCount);
    rows_.AddFiles(
        "SELECT TOP " + std::to_string(count) +
        " Path, Artist, Title, TStamp FROM Media WHERE MediaType=1 ORDER BY TStamp DESC");
}

} // namespace vk
