// What the next run is to find of the films: section video_player of settings.ini.
#pragma once

#include "core/settings.h"
#include "playback/loudness.h"

#include <cstdint>
#include <string>

namespace vk {

/// Where the movie player stands.
struct FilmPlace {
    std::int32_t index = 0; ///< zero-based, in the list of the run
    std::string path;       ///< "" for a disc
    std::int32_t seconds = 0;
    std::int32_t serial = 0; ///< of the disc that holds it; 0: none
    bool dvd = false;
    int title = 0; ///< of a disc
    bool operator==(const FilmPlace&) const = default;
};

class VideoData {
  public:
    /// Both outlive this object.
    VideoData(SettingsStore& settings, Loudness& loudness)
        : settings_(settings), loudness_(loudness) {}

    /// Writes it in one step, when something of it has changed.
    void Save(const FilmPlace& place);
    /// The seconds at which that film was left, 0 when another one was; always 0 with `DoResume`
    /// off.
    std::int32_t LeftAt(const std::string& path) const;
    /// The title of the disc that was left, 0 for its menus; it is to be the same disc.
    int LeftTitle() const {
        return settings_.values.DoResume ? settings_.Get(setting::CurrentTitle) : 0;
    }
    /// The film that was left, "" for none.
    std::string LastFilm() const { return settings_.Get(setting::CurrentMovie); }

  private:
    SettingsStore& settings_;
    Loudness& loudness_;
    FilmPlace saved_;
    std::int32_t savedVolume_ = -1;
};

} // namespace vk
