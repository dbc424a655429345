// What kind of media a file is, told by its extension.
#pragma once

#include <string>
#include <vector>

namespace vk {

/// The kinds of media, under the numbers that the catalogue stores too.
enum MediaTypeValue : int {
    MediaUnknown = 0,
    MediaAudio = 1,
    MediaVideo = 2,
    MediaPlaylist = 3,  ///< ".m3u"
    MediaPresetList = 4 ///< ".lst"
};

/// The extensions that the settings name, without points.
struct MediaExtensions {
    std::vector<std::string> AudioExtensionList;
    std::vector<std::string> VideoExtensionList;

    /// Takes over what the settings name: texts separated by ":".
    void Load(const std::string& audio, const std::string& video);
};

/// The kind of `path` by `extensions`, the audio list first; case does not count.
/// A path shorter than 4 characters is of no kind.
int GetMediaType(const MediaExtensions& extensions, const std::string& path);

} // namespace vk
