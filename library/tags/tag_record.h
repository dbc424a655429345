// What is known of an audio file from its tag or its name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vk {

inline constexpr std::uint8_t UnknownGenreNum = 255;
inline constexpr const char* UnknownGenre = "(Unknown Genre)";

/// Characters to which every reader cuts its texts: the width of the catalogue's columns.
inline constexpr std::size_t TagTextLength = 50;

/// Whether a reader takes an embedded picture along: it can be larger than all the rest.
enum class Picture { Read, Skip };

/// How a tag is read.
struct TagReading {
    Picture picture = Picture::Read;
    /// Texts are decoded by their encoding and of several pictures the front cover is taken; else
    /// bytes stay what they are, and the last picture counts.
    bool extended = false;
};

/// Texts are UTF-8 and hold no NUL; what is not known is empty.
struct TagRecord {
    std::string Title;
    std::string Artist;
    std::string Album;
    std::string Genre; ///< description; `ReadTag` gives "(Unknown Genre)" when there is none
    std::uint8_t GenreNum = UnknownGenreNum; ///< index in the genre table
    std::uint16_t Track = 0;                 ///< 0 when unknown
    std::string Year;                        ///< ID3v1 only
    std::string Comment;                     ///< ID3v1 only
    std::string PictureData;                 ///< the bytes of an embedded picture
};

} // namespace vk
