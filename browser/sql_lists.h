// The browser's lists of the catalogue: its menu, artists, albums, genres, playlists, all music and
// films, and what is new.
#pragma once

#include "browser/sql_rows.h"

#include <string>

namespace vk {

/// What is given outlives it.
class SqlLists {
  public:
    explicit SqlLists(ListDesk& desk) : desk_(desk), rows_(desk) {}

    /// Replaces the rows of the list by those that a descriptor of the kind `Sql` stands for;
    /// `chosen` is the text of the row it was taken from. A query that fails leaves the way back.
    void Show(const Descriptor& row, const std::string& chosen);

  private:
    using Adder = void (SqlLists::*)(const std::string& argument);
    struct List;
    static const List* Find(const std::string& body);

    void BrowseAll(const std::string& argument);
    void TextSearch(const std::string& argument);
    void BrowseArtist(const std::string& argument);
    void BrowseGenre(const std::string& argument);
    void BrowsePlaylists(const std::string& argument);
    void BrowseMusic(const std::string& argument);
    void BrowseVideo(const std::string& argument);
    void BrowseNewMusic(const std::string& argument);
    Descriptor BackOf(const Descriptor& row) const;

    ListDesk& desk_;
    SqlRows rows_;
    std::string chosen_; ///< the text of the row that led to the present list
};

} // namespace vk
