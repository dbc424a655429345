// The keys of winamp.ini that the player obeys. It never writes the file: that is its remote
// control's.
#pragma once

#include <array>
#include <string>

namespace vk {

/// Equaliser values as the wire and the file have them: 0 is +20 dB, 31 flat, 63 -20 dB.
struct EqualiserValues {
    bool on = false;
    int preamp = 31;
    std::array<int, 10> bands{31, 31, 31, 31, 31, 31, 31, 31, 31, 31};
};

/// Section "winamp".
struct PlayerSettings {
    bool shuffle = false;
    bool repeat = false;
    bool advance = true; ///< `pladv`: go on to the next entry at the end of a track
    int volume = 255;    ///< 0 to 255
    EqualiserValues equaliser;
};

/// Missing and unusable values give the defaults.
PlayerSettings ReadPlayerSettings(const std::string& file);

/// The gain in dB of an equaliser value, -20 to 20; 31 and 32 are both flat.
float EqualiserGain(int value);

} // namespace vk
