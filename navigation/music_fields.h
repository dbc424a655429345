// What plays, on the map: the song's title and artist, and room for its buttons.
#pragma once

#include "navigation/gps_view.h"
#include "playback/audio_state.h"
#include "playback/transport.h"

#include <string>

namespace vk {

class MusicFields {
  public:
    /// All of it outlives this object.
    MusicFields(GPSView& view, const AudioState& audio, Transport& transport)
        : view_(view), audio_(audio), transport_(transport) {}
    /// Looks at what plays, and shows what has changed; true when something began or ended.
    bool Refresh();
    /// The next look shows all of it: the screen was left, and what plays may be another thing.
    void Forget() { shown_ = false; }

  private:
    GPSView& view_;
    const AudioState& audio_;
    Transport& transport_;
    bool shown_ = false, plays_ = false;
    std::string title_, artist_;
};

} // namespace vk
