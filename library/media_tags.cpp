#include "library/media_tags.h"

#include "library/tags/file_name_tag.h"

namespace vk {

TagRecord MediaTags::GetDBTag(const std::string& path) const {
    if (catalogue_)
        if (auto stored = catalogue_->StoredTag(path)) return *std::move(stored);
    const int type = GetMediaType(extensions_, path);
    if (type == MediaAudio) {
        TagRecord tag = reader_.ReadTag(path, Picture::Skip);
        if (!tag.Title.empty() || !tag.Artist.empty()) return tag;
    }
    return GetFileNameTag(path, type);
}

} // namespace vk
