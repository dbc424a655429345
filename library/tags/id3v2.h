// The frames of an ID3v2 tag at the start of a file: https://id3.org/id3v2-00 (2.2),
// https://id3.org/id3v2.3.0, https://id3.org/id3v2.4.0-structure. Unsynchronised tags and extended
// headers are refused before these readers are called.
#pragma once

#include "library/tags/genre_table.h"
#include "library/tags/media_file.h"
#include "library/tags/tag_record.h"

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Thrown by the extended reading for a frame that is compressed, unsynchronised or the like.
struct UnknownFrameForm {};

/// Each reads a tag of its version into `tag`, frame by frame. Damage throws; what was read before
/// stays in `tag`.
void ReadID3v22(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                const TagReading& reading = {});
void ReadID3v23(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                const TagReading& reading = {});
void ReadID3v24(MediaFile& file, const GenreTable& genres, TagRecord& tag,
                const TagReading& reading = {});

/// The description and number in a genre text: "Pop", "(13)", "(13)Power Pop".
void TakeGenreText(std::string_view text, const GenreTable& genres, TagRecord& tag);

/// The same of several values, each a text or a number, "RX" and "CR" for remix and cover; their
/// descriptions are joined by "; ", the first number that is known counts.
void TakeGenres(const std::vector<std::string>& values, const GenreTable& genres, TagRecord& tag);

/// Whether a picture frame, which is not empty, holds the front cover.
bool IsFrontCover(std::string_view frame, bool mimeText = true);

/// What follows encoding, MIME text (in version 2.2 three letters without an end), picture type and
/// description in a picture frame; empty when a text does not end.
std::string PictureOfFrame(std::string_view frame, bool mimeText = true);

} // namespace vk
