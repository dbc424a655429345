#include "library/catalogue/file_row.h"

#include "library/catalogue/schema.h"
#include "library/queries/sql_text.h"
#include "library/tags/shown_tag.h"
#include "platform/paths.h"

namespace vk {

std::string RelativePath(const std::string& mediaDir, const std::string& path) {
    const std::string folder = WithoutTrailingSeparator(mediaDir);
    const std::string_view prefix = IsRoot(folder) ? std::string_view() : std::string_view(folder);
    const bool below = path.size() > prefix.size() && path.starts_with(prefix) &&
                       path[prefix.size()] == PathSeparator;
    return below ? path.substr(prefix.size()) : path;
}

FileRow MakeFileRow(ID3& reader, const std::string& path, const std::string& relative,
                    const std::string& stamp, int mediaType) {
    const TagRecord tag = ShownTag(reader, path, mediaType);
    FileRow row;
    row.Path = Escape(relative);
    row.TStamp = stamp;
    row.Title = Escape(tag.Title);
    row.Artist = Escape(tag.Artist);
    row.Album = Escape(tag.Album);
    const bool none = tag.Genre.empty() || tag.Genre == UnknownGenre;
    row.Genre = none ? EmptyGenre : Escape(tag.Genre);
    row.MediaType = mediaType;
    row.ParentDir = row.Path.substr(0, row.Path.rfind(PathSeparator) + 1);
    row.Track = tag.Track;
    return row;
}

RowWriter::RowWriter(Database& database)
    : findGenre_(database, "SELECT GenreID FROM Genres WHERE Description=?"),
      addGenre_(database, "INSERT INTO Genres(Description) VALUES(?)"),
      put_(database, "INSERT INTO Media(Path, TStamp, Title, Artist, GenreID, Album, MediaType,"
                     " ParentDir, Track) VALUES(?,?,?,?,?,?,?,?,?) ON CONFLICT(Path) DO UPDATE SET"
                     " TStamp=excluded.TStamp, Title=excluded.Title, Artist=excluded.Artist,"
                     " GenreID=excluded.GenreID, Album=excluded.Album,"
                     " MediaType=excluded.MediaType, ParentDir=excluded.ParentDir,"
                     " Track=excluded.Track"),
      remove_(database, "DELETE FROM Media WHERE Path=?") {}

void RowWriter::Put(const FileRow& row) {
    const std::int64_t genre = GenreNumber(row.Genre);
    put_.Bind(1, row.Path).Bind(2, row.TStamp).Bind(3, row.Title).Bind(4, row.Artist);
    put_.Bind(5, genre).Bind(6, row.Album).Bind(7, std::int64_t{row.MediaType});
    put_.Bind(8, row.ParentDir).Bind(9, std::int64_t{row.Track}).Run();
}

void RowWriter::Remove(std::string_view path) {
    remove_.Bind(1, path).Run();
}

std::int64_t RowWriter::GenreNumber(const std::string& description) {
    const auto known = genres_.find(description);
    if (known != genres_.end()) return known->second;
    for (;;) {
        findGenre_.Bind(1, description);
        const std::int64_t number = findGenre_.Step() ? findGenre_.Integer(0) : 0;
        findGenre_.Reset();
        if (number != 0) return genres_[description] = number;
        addGenre_.Bind(1, description).Run();
    }
}

} // namespace vk
