// The picture inside an audio file: a frame of its ID3v2 tag, a block of a FLAC file
// (https://xiph.org/flac/format.html#metadata_block_picture) or the same block as a comment of an
// Ogg Vorbis or Opus file (https://wiki.xiph.org/VorbisComment#Cover_art).
#pragma once

#include "library/tags/media_file.h"

#include <string>
#include <string_view>

namespace vk {

/// The picture's bytes, empty when there is none. It never fails, keeps no state and reports
/// nothing, so any thread may call it. What is damaged or larger than 64 MB counts as none. With
/// `extended` tags of every kind are looked into, and of several pictures the front cover is taken.
std::string ReadEmbeddedPicture(const std::string& path, bool extended = false);
std::string ReadEmbeddedPicture(MediaFile& file, bool extended = false);

/// The bytes of a picture block from behind its description and measures; empty when it is damaged.
std::string PictureOfBlock(std::string_view block);

/// Bytes from base64; empty when a foreign character is in the text.
std::string FromBase64(std::string_view text);

} // namespace vk
