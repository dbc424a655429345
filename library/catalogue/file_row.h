// The row of one file: made from its tags, written to the table.
#pragma once

#include "library/catalogue/sqlite.h"
#include "library/tags/tag_reader.h"

#include <cstdint>
#include <map>
#include <string>

namespace vk {

/// A row of the table Media. Texts are escaped.
struct FileRow {
    std::string Path; ///< relative to the media folder, with a separator in front: the key
    std::string TStamp;
    std::string Title, Artist, Album;
    std::string Genre;
    int MediaType = 0;
    std::string ParentDir; ///< with a separator at either end
    std::uint16_t Track = 0;
};

/// What of `path` follows the media folder; a path that lies elsewhere, or is written in another
/// case, stays whole.
std::string RelativePath(const std::string& mediaDir, const std::string& path);

/// The row of the file at `path`, with the tag that it is shown with, so that lists, searches and
/// albums agree. `relative` is the path as the catalogue has it.
FileRow MakeFileRow(ID3& reader, const std::string& path, const std::string& relative,
                    const std::string& stamp, int mediaType);

/// Writes rows through statements that are prepared once. Does not outlive its connection.
class RowWriter {
  public:
    explicit RowWriter(Database& database);
    /// Adds the row or updates the one of the same path.
    void Put(const FileRow& row);
    /// Removes the row of an escaped path.
    void Remove(std::string_view path);
    /// The number of a genre, which is added when it is new. Genres are never removed.
    std::int64_t GenreNumber(const std::string& description);

  private:
    Statement findGenre_, addGenre_, put_, remove_;
    std::map<std::string, std::int64_t> genres_;
};

} // namespace vk
