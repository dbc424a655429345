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

/// True when a card, a sound server or a configured device is there.
bool SoundDeviceFound(const SoundPlaces& places);

} // namespace vk
