#include "library/media_tags.h"

#include "library/tags/shown_tag.h"

namespace vk {

TagRecord MediaTags::GetDBTag(const std::string& path) const {
    if (catalogue_)
        if (auto stored = catalogue_->StoredTag(path)) return *std::move(stored);
    return ShownTag(reader_, path, GetMediaType(extensions_, path));
}

} // namespace vk
