#include "library/tags/shown_tag.h"

#include "library/tags/file_name_tag.h"
#include "library/tags/media_type.h"

#include <utility>

namespace vk {

TagRecord ShownTag(ID3& reader, const std::string& path, int mediaType) {
    if (mediaType != MediaAudio) return GetFileNameTag(path, mediaType);
    TagRecord tag = reader.ReadTag(path, Picture::Skip);
    if (!tag.Title.empty() || !tag.Artist.empty()) return tag;
    TagRecord named = GetFileNameTag(path, mediaType);
    tag.Artist = std::move(named.Artist);
    tag.Title = std::move(named.Title);
    return tag;
}

} // namespace vk
