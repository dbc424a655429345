// What a file's name says about it when it has no tag.
#pragma once

#include "library/tags/tag_record.h"

#include <string>

namespace vk {

/// Artist and title from a name such as "07_Artist_-_Title.mp3"; "(Unknown Artist)" when there is
/// no hyphen. `mediaType` is a `MediaTypeValue`: for any but audio the whole name is the title.
TagRecord GetFileNameTag(const std::string& path, int mediaType);

} // namespace vk
