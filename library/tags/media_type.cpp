#include "library/tags/media_type.h"

#include "core/text.h"
#include "platform/paths.h"

#include <algorithm>

namespace vk {

namespace {

bool Contains(const std::vector<std::string>& extensions, const std::string& extension) {
    return std::ranges::any_of(extensions, [&](const std::string& entry) {
        return !entry.empty() && EqualNoCase(entry, extension);
    });
}

} // namespace

void MediaExtensions::Load(const std::string& audio, const std::string& video) {
    AudioExtensionList = Split(audio, ':');
    VideoExtensionList = Split(video, ':');
}

int GetMediaType(const MediaExtensions& extensions, const std::string& path) {
    if (path.size() < 4) return MediaUnknown;
    const std::string extension = ExtensionOf(path);
    if (Contains(extensions.AudioExtensionList, extension)) return MediaAudio;
    if (Contains(extensions.VideoExtensionList, extension)) return MediaVideo;
    if (EqualNoCase(extension, "m3u")) return MediaPlaylist;
    if (EqualNoCase(extension, "lst")) return MediaPresetList;
    return MediaUnknown;
}

} // namespace vk
