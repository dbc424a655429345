// The texts of an MP4 file (M4A and its like), as iTunes and all others write them: the items below
// moov.udta.meta.ilst
// (https://developer.apple.com/documentation/quicktime-file-format/metadata_item_list_atom).
#pragma once

#include "library/tags/genre_table.h"
#include "library/tags/media_file.h"
#include "library/tags/tag_record.h"

namespace vk {

/// Reads the items into `tag`, several values of one joined by "; "; a file without them leaves it
/// as it is. Damage throws; what was read before stays in `tag`.
void ReadMp4Tag(MediaFile& file, const GenreTable& genres, TagRecord& tag);

} // namespace vk
