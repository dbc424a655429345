#include "library/tags/media_type.h"

#include "core/text.h"
#include "library/lists/entry_resolver.h"
#include "platform/paths.h"

#include <algorithm>
#include <array>

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

std::string WithExtensions(const std::string& list, const std::string& more) {
    std::vector<std::string> entries = Split(list, ':');
    for (const std::string& extension : Split(more, ':'))
        if (!Contains(entries, extension)) entries.push_back(extension);
    std::erase(entries, "");
    return Join(entries, ":");
}

bool IsSystemName(std::string_view name) {
    if (name.starts_with('.')) return true;
    constexpr std::array Kept = {"$RECYCLE.BIN", "System Volume Information", "lost+found"};
    return std::ranges::any_of(Kept, [&](const char* kept) { return EqualNoCase(name, kept); });
}

int GetMediaType(const MediaExtensions& extensions, const std::string& path) {
    if (path.size() < 4) return MediaUnknown;
    const std::string extension = ExtensionOf(path);
    if (IsStreamAddress(path))
        return Contains(extensions.VideoExtensionList, extension) ? MediaVideo : MediaAudio;
    if (Contains(extensions.AudioExtensionList, extension)) return MediaAudio;
    if (Contains(extensions.VideoExtensionList, extension)) return MediaVideo;
    for (const char* playlist : {"m3u", "m3u8", "pls"})
        if (EqualNoCase(extension, playlist)) return MediaPlaylist;
    if (EqualNoCase(extension, "lst")) return MediaPresetList;
    return MediaUnknown;
}

} // namespace vk
