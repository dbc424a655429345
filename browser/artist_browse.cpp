#include "browser/artist_browse.h"

#include "browser/album_marker.h"
#include "core/text.h"
#include "library/queries/sql_text.h"

namespace vk {

namespace {

constexpr const char* List = "BrowseArtist";
constexpr const char* ArtistField = "Artist=";
constexpr const char* AlbumField = "Album=";

// What a condition names, for showing.
std::string ShownCondition(const std::string& condition) {
    const std::string names = ReplaceAll(ReplaceAll(condition, ArtistField, ""), AlbumField, "");
    return Unescape(ReplaceAll(names, "'", ""));
}

void ListArtists(SqlRows& rows) {
    rows.SetTitle("Browsing by Artist ", "Build Playlist | Browsing by artist ");
    rows.AddRecords("SELECT DISTINCT Artist FROM Media WHERE ((Artist)<>'') ORDER BY Artist", List,
                    "Artist='", "'");
}

void ListAlbums(SqlRows& rows, const std::string& condition) {
    const std::string title = "Albums of: " + ShownCondition(condition);
    rows.SetTitle(title, "Building Playlist | " + title);
    rows.AddRecords("SELECT DISTINCT Album FROM Media WHERE ((Album)<>'') AND " + condition +
                        " ORDER BY Album",
                    List, condition + AlbumMarker + "Album='", "'");
}

void ListAlbum(SqlRows& rows, const std::string& condition) {
    const std::string title = ShownCondition(condition);
    rows.SetTitle(title, "Building Playlist | " + title);
    rows.AddFiles("SELECT Path, Artist, Title FROM Media WHERE " + condition + " ORDER BY Track");
}

void ListTitles(SqlRows& rows, const std::string& condition) {
    const std::string title = "Artist: " + ShownCondition(condition);
    rows.SetTitle(title, "Building Playlist | " + title);
    rows.AddMenu("---List Albums---", Descriptor::Sql(List, condition + AlbumMarker));
    rows.AddFiles("SELECT DISTINCT Artist, Title, Path FROM Media WHERE " + condition +
                  " ORDER BY Title");
}

} // namespace

void BrowseArtist(SqlRows& rows, const std::string& condition) {
    if (condition.empty()) return ListArtists(rows);
    if (EndsInAlbumMarker(condition)) return ListAlbums(rows, BeforeAlbumMarker(condition));
    const auto marker = FindAlbumMarker(condition);
    if (marker == std::string::npos) return ListTitles(rows, condition);
    ListAlbum(rows,
              std::string(condition).replace(marker, std::string(AlbumMarker).size(), " AND "));
}

} // namespace vk
