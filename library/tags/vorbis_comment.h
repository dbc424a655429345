// The comment header of an Ogg Vorbis file (https://xiph.org/vorbis/doc/v-comment.html). The packet
// is found by its marker, the pages of the container are not looked at.
#pragma once

#include "library/tags/genre_table.h"
#include "library/tags/media_file.h"
#include "library/tags/tag_record.h"

namespace vk {

/// Reads the comments of a FLAC file (https://xiph.org/flac/format.html#metadata_block) into `tag`,
/// keys in any case; several values of one are joined by "; ". Damage throws as below.
void ReadFlacComment(MediaFile& file, const GenreTable& genres, TagRecord& tag);

/// Reads the comments into `tag`; a file without them leaves it as it is. Damage throws; what was
/// read before stays in `tag`.
void ReadVorbisComment(MediaFile& file, const GenreTable& genres, TagRecord& tag);

} // namespace vk
