// The tag that a file is shown with.
#pragma once

#include "library/catalogue.h"
#include "library/tags/media_type.h"
#include "library/tags/tag_reader.h"

#include <string>

namespace vk {

/// Chooses between the catalogue's row, a file's own tag and its name. What it is given outlives
/// it.
class MediaTags {
  public:
    MediaTags(const MediaExtensions& extensions, ID3& reader, Catalogue* catalogue = nullptr)
        : extensions_(extensions), reader_(reader), catalogue_(catalogue) {}

    /// The tag of the file at the full path `path`: what the catalogue has, else from the file. An
    /// audio file without artist and title in its tag, and every other kind of file, is described
    /// by its name.
    TagRecord GetDBTag(const std::string& path) const;

  private:
    const MediaExtensions& extensions_;
    ID3& reader_;
    Catalogue* catalogue_; ///< null: none
};

} // namespace vk
