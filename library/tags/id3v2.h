// The frames of an ID3v2 tag at the start of a file: https://id3.org/id3v2-00 (2.2),
// https://id3.org/id3v2.3.0, https://id3.org/id3v2.4.0-structure. Texts in two-byte encodings are
// not decoded; unsynchronised tags and extended headers are refused before these readers are
// called.
#pragma once

#include "library/tags/genre_table.h"
#include "library/tags/media_file.h"
#include "library/tags/tag_record.h"

namespace vk {

/// Each reads a tag of its version into `tag`, frame by frame. Damage throws; what was read before
/// stays in `tag`.
void ReadID3v22(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                Picture picture = Picture::Read);
void ReadID3v23(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                Picture picture = Picture::Read);
void ReadID3v24(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                Picture picture = Picture::Read);

/// The description and number in a genre text: "Pop", "(13)", "(13)Power Pop".
void TakeGenreText(std::string_view text, const GenreTable& genres, TagRecord& tag);

/// What follows encoding, MIME text (in version 2.2 three letters without an end), picture type and
/// description in a picture frame; empty when a text does not end.
std::string PictureOfFrame(std::string_view frame, bool mimeText = true);

} // namespace vk
