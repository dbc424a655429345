// The tag that a file is shown with.
#pragma once

#include "core/app_state.h"
#include "library/tag_reader.h"

#include <string>

namespace vk {

/// Chooses between a file's own tag and its name. What it is given outlives it.
class MediaTags {
  public:
    MediaTags(const AppState& app, ID3& reader) : app_(app), reader_(reader) {}

    /// The tag of the file at the full path `path`. An audio file without artist and title in its
    /// tag, and every other kind of file, is described by its name.
    TagRecord GetDBTag(const std::string& path) const;

  private:
    const AppState& app_;
    ID3& reader_;
};

} // namespace vk
