// The catalogue by artist: artists, an artist's titles, an artist's albums, the titles of an album.
#pragma once

#include "browser/sql_rows.h"

#include <string>

namespace vk {

/// Adds the rows that a condition stands for: of none the artists, of one that ends in the marker
/// the albums, of one that holds it an album's titles, else an artist's.
void BrowseArtist(SqlRows& rows, const std::string& condition);

} // namespace vk
