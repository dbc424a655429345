// The ID3v1 tag, the last 128 bytes of a file (https://id3.org/ID3v1), with the track number
// of 1.1.
#pragma once

#include "library/tags/genre_table.h"
#include "library/tags/media_file.h"
#include "library/tags/tag_record.h"

#include <string>
#include <string_view>

namespace vk {

inline constexpr std::uint64_t ID3v1Length = 128; ///< bytes, the marker "TAG" included

/// The texts of a tag at their fixed widths.
struct ID3v1Texts {
    std::string Title, Artist, Album, Year, Comment;
};

/// Pads every text with blanks to its width: 30, the year 4.
void SpaceOut(ID3v1Texts& texts);

/// The text up to the first NUL.
std::string ZString(std::string_view fixedLengthText);

/// Reads the tag at the end of a file that is known to have one.
void ReadID3v1(MediaFile& file, const GenreTable& genres, TagRecord& tag);

} // namespace vk
