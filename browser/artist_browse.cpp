// The catalogue by artist: artists, an artist's titles, an artist's albums, the titles of an album.
#include "browser/album_marker.h"
#include "browser/sql_lists.h"
#include "core/text.h"
#include "library/queries/sql_text.h"

namespace vk {

namespace {

constexpr const char* ArtistField = "Artist=";
constexpr const char* AlbumField = "Album=";

// What a condition names, for showing.
std::string ShownCondition(const std::string& condition) {
    const std::string names = ReplaceAll(ReplaceAll(condition, ArtistField, ""), AlbumField, "");
    return Unescape(ReplaceAll(names, "'", ""));
}

} // namespace

void SqlLists::BrowseArtist(const std::string& argument) {
    if (argument.empty()) return ListArtists();
    if (EndsInAlbumMarker(argument)) return ListAlbums(BeforeAlbumMarker(argument));
    const auto marker = FindAlbumMarker(argument);
    if (marker == std::string::npos) return ListTitles(argument);
    ListAlbum(std::string(argument).replace(marker, std::string(AlbumMarker).size(), " AND "));
}

void SqlLists::ListArtists() {
    SetTitle("Browsing by Artist ", "Build Playlist | Browsing by artist ");
    AddRecords("SELECT DISTINCT Artist FROM Media WHERE ((Artist)<>'') ORDER BY Artist",
               "SQL:BrowseArtist|Artist='", "'");
}

void SqlLists::ListAlbums(const std::string& condition) {
    const std::string title = "Albums of: " + ShownCondition(condition);
    SetTitle(title, "Building Playlist | " + title);
    AddRecords("SELECT DISTINCT Album FROM Media WHERE ((Album)<>'') AND " + condition +
                   " ORDER BY Album",
               "SQL:BrowseArtist|" + condition + AlbumMarker + "Album='", "'");
}

void SqlLists::ListAlbum(const std::string& condition) {
    const std::string title = ShownCondition(condition);
    SetTitle(title, "Building Playlist | " + title);
    AddFiles("SELECT Path, Artist, Title FROM Media WHERE " + condition + " ORDER BY Track");
}

void SqlLists::ListTitles(const std::string& condition) {
    const std::string title = "Artist: " + ShownCondition(condition);
    SetTitle(title, "Building Playlist | " + title);
    AddMenu("---List Albums---", "BrowseArtist|" + condition + AlbumMarker);
    AddFiles("SELECT DISTINCT Artist, Title, Path FROM Media WHERE " + condition +
             " ORDER BY Title");
}

} // namespace vk
