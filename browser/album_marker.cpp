#include "browser/album_marker.h"

#include <string_view>

namespace vk {

std::string::size_type FindAlbumMarker(const std::string& condition) {
    bool literal = false;
    for (std::size_t at = 0; at < condition.size(); ++at) {
        if (condition[at] == '\'')
            literal = !literal;
        else if (!literal && std::string_view(condition).substr(at).starts_with(AlbumMarker))
            return at;
    }
    return std::string::npos;
}

bool EndsInAlbumMarker(const std::string& condition) {
    const auto at = FindAlbumMarker(condition);
    return at != std::string::npos && condition.substr(at) == AlbumMarker;
}

std::string BeforeAlbumMarker(const std::string& condition) {
    return condition.substr(0, FindAlbumMarker(condition));
}

} // namespace vk
