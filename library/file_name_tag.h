// What a file's name says about it when it has no tag.
#pragma once

#include "library/tag_record.h"

#include <string>

namespace vk {

inline constexpr int AudioMediaType = 1;

/// Artist and title from a name such as "07_Artist_-_Title.mp3"; "(Unknown Artist)" when there is
/// no hyphen. For a media type other than 1 (audio) the whole name is the title.
TagRecord GetFileNameTag(const std::string& path, int mediaType);

} // namespace vk
