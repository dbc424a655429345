// What a file of sound is by its first bytes, whatever its name says.
#pragma once

#include "library/tags/media_file.h"

namespace vk {

/// The forms of files that are told apart.
enum class FileForm {
    Other, ///< MPEG and all that only tags at either end tell of
    Flac,
    Mp4,
    Asf, ///< Windows Media
    Wav,
    Aiff,
    Ape,
    Musepack,
    WavPack,
    TrueAudio,
    OggVorbis,
    OggOpus,
    OggFlac,
    Speex
};
FileForm FormOf(MediaFile& file);

/// True for a file that begins with an ID3v2 tag which is unsynchronised or has an extended header.
bool HasForeignID3v2(MediaFile& file);

/// True for a file that ends in an APE tag (https://wiki.hydrogenaud.io/index.php?title=APEv2),
/// be there an ID3v1 tag behind it or not.
bool EndsInApeTag(MediaFile& file);

} // namespace vk
