// Is there anything to play on?
#pragma once

#include <string>

namespace vk {

/// Where to look; the defaults are the machine's own.
struct SoundPlaces {
    std::string cards = "/proc/asound/cards"; ///< ALSA's list of cards
    std::string runtimeFolder;                ///< holds "pulse/native" of a sound server
    std::string server;                       ///< PULSE_SERVER
    std::string alsaConfig;                   ///< ALSA_CONFIG_PATH: somebody configured a device
    /// As the environment has them.
    static SoundPlaces OfEnvironment();
};

/// What there is to play on.
enum class SoundDevice {
    None,
    Card,  ///< a card, or a device that somebody configured; it may take one stream alone
    Server ///< a sound server, which mixes streams
};

SoundDevice FindSoundDevice(const SoundPlaces& places);

} // namespace vk
