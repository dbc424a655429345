#include "playback/audio/source_table.h"

#include <vector>

namespace vk {

// The sources form a ring: audio files, then the tuners in their order.
PlayModeValue NextSource(std::int32_t mode, const Tuners& tuners) {
    std::vector<PlayModeValue> ring = {PlayAudio};
    if (tuners.xm && tuners.xmFirst) ring.push_back(PlayXM);
    if (tuners.fm) ring.push_back(PlayFM);
    if (tuners.xm && !tuners.xmFirst) ring.push_back(PlayXM);
    if (ring.size() == 1) return PlayNone;
    for (std::size_t i = 0; i < ring.size(); ++i)
        if (ring[i] == mode) return ring[(i + 1) % ring.size()];
    return PlayNone;
}

const char* SourcePicture(PlayModeValue mode) {
    return mode == PlayFM ? "fm.gif" : mode == PlayXM ? "xm.gif" : "player.gif";
}

} // namespace vk
