// The tag that a file is shown and found by.
#pragma once

#include "library/tags/tag_reader.h"

#include <string>

namespace vk {

/// An audio file's own tag without its picture, artist and title from its name where it has
/// neither; any other kind of file is described by its name. `mediaType` is a `MediaTypeValue`.
TagRecord ShownTag(ID3& reader, const std::string& path, int mediaType);

} // namespace vk
