#include "browser/list_modes.h"

#include "library/browser_state.h"
#include "platform/files.h"

#include <algorithm>
#include <vector>

namespace vk {

namespace {

struct ModeRow {
    std::int16_t mode;
    std::vector<int> types;
};

const std::vector<ModeRow>& Modes() {
    static const std::vector<ModeRow> modes = {
        {ListFromMenu, {MediaAudio, MediaVideo, MediaPlaylist, MediaPresetList}},
        {ListFromAudio, {MediaAudio, MediaVideo, MediaPlaylist}},
        {ListFromVideo, {MediaVideo}},
        {ListBuild, {MediaAudio}},
        {ListApplications, {}},
    };
    return modes;
}

} // namespace

bool ModeAccepts(std::int16_t listMode, int mediaType) {
    const auto row = std::ranges::find(Modes(), listMode, &ModeRow::mode);
    return row != Modes().end() && std::ranges::count(row->types, mediaType) > 0;
}

bool IsShowable(const MediaExtensions& extensions, std::int16_t listMode, const std::string& path) {
    return ModeAccepts(listMode, GetMediaType(extensions, path)) && FileLength(path) > 0;
}

} // namespace vk
