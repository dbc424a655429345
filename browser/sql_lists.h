// The browser's lists of the catalogue: its menu, artists, albums, genres, playlists, all music and
// films, and what is new.
#pragma once

#include "browser/list_desk.h"
#include "library/descriptor.h"

#include <string>

namespace vk {

/// What is given outlives it.
class SqlLists {
  public:
    explicit SqlLists(ListDesk& desk) : desk_(desk) {}

    /// Replaces the rows of the list by those that a descriptor of the kind "SQL" stands for;
    /// `chosen` is the text of the row it was taken from. A query that fails leaves the way back.
    void Show(const RowDescriptor& row, const std::string& chosen);

  private:
    using Adder = void (SqlLists::*)(const std::string& argument);
    struct List;
    static const List* Find(const std::string& body);

    void BrowseAll(const std::string& argument);
    void TextSearch(const std::string& argument);
    // artist_browse.cpp
    void BrowseArtist(const std::string& argument);
    void ListArtists();
    void ListAlbums(const std::string& condition);
    void ListAlbum(const std::string& condition);
    void ListTitles(const std::string& condition);
    // the others
    void BrowseGenre(const std::string& argument);
    void BrowsePlaylists(const std::string& argument);
    void BrowseMusic(const std::string& argument);
    void BrowseVideo(const std::string& argument);
    void BrowseNewMusic(const std::string& argument);

    std::string BackOf(const RowDescriptor& row) const;
    void SetTitle(const std::string& browsing, const std::string& building);
    void AddMenu(const std::string& text, const std::string& body);
    void AddRecords(const std::string& sql, const std::string& descriptor, const std::string& end);
    void AddFiles(const std::string& sql);

    ListDesk& desk_;
    std::string chosen_; ///< the text of the row that led to the present list
};

} // namespace vk
