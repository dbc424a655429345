// The marker that turns a condition of the artist browse into a list of albums.
#pragma once

#include <string>

namespace vk {

inline constexpr const char* AlbumMarker = "[Albums]";

/// Where the marker stands in a condition, npos for nowhere. One inside a literal is a part of some
/// artist's or album's name.
std::string::size_type FindAlbumMarker(const std::string& condition);

/// True when it stands there and ends the condition.
bool EndsInAlbumMarker(const std::string& condition);

/// The condition without its last marker and what follows.
std::string BeforeAlbumMarker(const std::string& condition);

} // namespace vk
