// What kind of media a file is, told by its extension.
#pragma once

#include "core/app_state.h"

#include <string>

namespace vk {

/// The kinds of media, under the numbers that the catalogue stores too.
enum MediaTypeValue : int {
    MediaUnknown = 0,
    MediaAudio = 1,
    MediaVideo = 2,
    MediaPlaylist = 3,  ///< ".m3u"
    MediaPresetList = 4 ///< ".lst"
};

/// The kind of `path` by the extension lists of `app`, the audio list first; case does not count.
/// A path shorter than 4 characters is of no kind.
int GetMediaType(const AppState& app, const std::string& path);

} // namespace vk
