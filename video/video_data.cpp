#include "video/video_data.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace vk {

void VideoData::Save(const FilmPlace& place) {
    const auto volume = loudness_.LevelToKeep(setting::VideoVolume);
    if (place == saved_ && volume.value_or(savedVolume_) == savedVolume_) return;
    constexpr std::int32_t Most = std::numeric_limits<std::int16_t>::max();
    std::vector<SettingChange> changes = {
        {setting::SelectedMovie, static_cast<std::int16_t>(std::min(place.index, Most))},
        {setting::CurrentMovie, place.path},
        {setting::VideoPosition, place.seconds},
        {setting::PlayDVD, place.dvd},
        {setting::CurrentTitle, static_cast<std::int16_t>(place.title)},
        {setting::VideoVolumeSerial, place.serial}};
    if (volume) changes.emplace_back(setting::VideoVolume, *volume);
    settings_.Write(changes);
    saved_ = place;
    savedVolume_ = volume.value_or(savedVolume_);
}

std::int32_t VideoData::LeftAt(const std::string& path) const {
    if (!settings_.values.DoResume || path != LastFilm()) return 0;
    return std::max(0, settings_.Get(setting::VideoPosition));
}

} // namespace vk
