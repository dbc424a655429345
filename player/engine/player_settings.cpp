#include "player/engine/player_settings.h"

#include "core/ini_file.h"
#include "core/text.h"

namespace vk {

namespace {

int ReadNumber(const std::string& file, const char* key, int fallback, int highest) {
    const auto value = ParseInteger(GetPrivateProfileString("winamp", key, "", file));
    return value && *value >= 0 && *value <= highest ? static_cast<int>(*value) : fallback;
}

void ReadBands(const std::string& file, std::array<int, 10>& bands) {
    const auto parts = Split(GetPrivateProfileString("winamp", "eq_data", "", file), ',');
    for (std::size_t band = 0; band < bands.size() && band < parts.size(); ++band) {
        const auto value = ParseInteger(parts[band]);
        if (value && *value >= 0 && *value <= 63) bands[band] = static_cast<int>(*value);
    }
}

} // namespace

PlayerSettings ReadPlayerSettings(const std::string& file) {
    PlayerSettings settings;
    // Any number but 0 is "on": other programs write -1.
    const auto shuffle = ParseInteger(GetPrivateProfileString("winamp", "shuffle", "", file));
    settings.shuffle = shuffle.value_or(0) != 0;
    settings.repeat = ReadNumber(file, "repeat", 0, 1) == 1;
    settings.advance = ReadNumber(file, "pladv", 1, 1) == 1;
    settings.volume = ReadNumber(file, "Volume", 255, 255);
    settings.equaliser.on = ReadNumber(file, "use_eq", 0, 1) == 1;
    settings.equaliser.preamp = ReadNumber(file, "preamp", 31, 63);
    ReadBands(file, settings.equaliser.bands);
    return settings;
}

float EqualiserGain(int value) {
    return static_cast<float>(value <= 31 ? 31 - value : 32 - value) * (20.0f / 31.0f);
}

} // namespace vk
