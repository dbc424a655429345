// What kind of media a file is, told by its extension.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The kinds of media, under the numbers that the catalogue stores too.
enum MediaTypeValue : int {
    MediaUnknown = 0,
    MediaAudio = 1,
    MediaVideo = 2,
    MediaPlaylist = 3,  ///< ".m3u", ".m3u8", ".pls"
    MediaPresetList = 4 ///< ".lst"
};

/// The extensions that the settings name, without points.
struct MediaExtensions {
    std::vector<std::string> AudioExtensionList;
    std::vector<std::string> VideoExtensionList;

    /// Takes over what the settings name: texts separated by ":".
    void Load(const std::string& audio, const std::string& video);
};

/// What the player plays today beyond the lists of a new settings file, as those are written.
inline constexpr const char* NewerAudio = "M4A:AAC:OPUS:OGA:WMA:WV:APE:MPC:M4B:FLAC:OGG";
inline constexpr const char* NewerVideo = "MKV:MP4:M4V:MOV:WMV:WEBM:TS:VOB:ISO";

/// The list, with what it lacks of `more` at its end.
std::string WithExtensions(const std::string& list, const std::string& more);

/// True for the name of a file or folder that other systems and file managers keep for themselves,
/// as `.name`, "$RECYCLE.BIN", "System Volume Information" and "lost+found": no media are listed or
/// catalogued in there.
bool IsSystemName(std::string_view name);

/// The kind of `path` by `extensions`, the audio list first; case does not count.
/// A path shorter than 4 characters is of no kind.
int GetMediaType(const MediaExtensions& extensions, const std::string& path);

} // namespace vk
