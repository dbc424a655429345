#include "platform/linux/sound_device.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace vk {

namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

// A card's line begins with its number: " 0 [PCH            ]: HDA-Intel - HDA Intel PCH". Files
// of /proc tell no length, so they are not read as other files are.
bool HasCard(const std::string& cards) {
    FILE* file = ::fopen(cards.c_str(), "re");
    if (!file) return false;
    int number = 0;
    const bool found = ::fscanf(file, " %d", &number) == 1;
    ::fclose(file);
    return found;
}

} // namespace

SoundPlaces SoundPlaces::OfEnvironment() {
    SoundPlaces places;
    places.runtimeFolder = Variable("XDG_RUNTIME_DIR");
    if (places.runtimeFolder.empty())
        places.runtimeFolder = "/run/user/" + std::to_string(::getuid());
    places.server = Variable("PULSE_SERVER");
    places.alsaConfig = Variable("ALSA_CONFIG_PATH");
    return places;
}

SoundDevice FindSoundDevice(const SoundPlaces& places) {
    std::error_code ignored;
    const bool server = std::filesystem::exists(places.runtimeFolder + "/pulse/native", ignored);
    if (server || !places.server.empty()) return SoundDevice::Server;
    const bool card = !places.alsaConfig.empty() || HasCard(places.cards);
    return card ? SoundDevice::Card : SoundDevice::None;
}

} // namespace vk
