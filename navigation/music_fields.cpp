#include "navigation/music_fields.h"

#include <utility>

namespace vk {

bool MusicFields::Refresh() {
    const bool first = !std::exchange(shown_, true);
    const bool plays = audio_.PlayMode != PlayNone;
    const bool changed = std::exchange(plays_, plays) != plays || first;
    if (changed) view_.SetAudio(plays);
    const NowPlaying now = plays ? transport_.Now() : NowPlaying{};
    if (std::exchange(title_, now.title) != now.title || first)
        view_.SetLabel(GPSLabel::Title, now.title);
    if (std::exchange(artist_, now.artist) != now.artist || first)
        view_.SetLabel(GPSLabel::Artist, now.artist);
    return changed;
}

} // namespace vk
