// libVLC's objects, released by themselves.
#pragma once

#include <vlc/vlc.h>

#include <memory>

namespace vk {

/// Calls `release` on what a unique_ptr lets go.
template<auto release> struct VlcRelease {
    template<class Object> void operator()(Object* object) const { release(object); }
};

using VlcInstance = std::unique_ptr<libvlc_instance_t, VlcRelease<&libvlc_release>>;
using VlcPlayer = std::unique_ptr<libvlc_media_player_t, VlcRelease<&libvlc_media_player_release>>;
using VlcMedia = std::unique_ptr<libvlc_media_t, VlcRelease<&libvlc_media_release>>;
using VlcEqualiser =
    std::unique_ptr<libvlc_equalizer_t, VlcRelease<&libvlc_audio_equalizer_release>>;

} // namespace vk
