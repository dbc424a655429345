// What the audio player leaves for other screens and takes from them.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// Sources of the audio player, under the numbers that settings.ini keeps.
enum PlayModeValue : std::int32_t { PlayNone = 0, PlayFM = 1, PlayXM = 2, PlayAudio = 3 };

/// What the tuners are called where a list's name is shown.
inline constexpr const char* FMSourceName = "D-Link FM Radio";
inline constexpr const char* XMSourceName = "XM Satellite Radio";

/// One object a process, handed by reference to the menu, the browser and the player.
struct AudioState {
    std::int32_t PlayMode = PlayNone;
    std::string ListFile; ///< full path of the list being played
    /// Zero-based, the player process's own numbering. Lists can be longer than 16 bits count.
    std::int32_t CurrentTrack = 0;
    std::int32_t TrackToSelect = 1;  ///< one-based index wanted by whoever asked for the list
    std::int32_t PlayingIndex = -1;  ///< entry that the player process was last told to play
    bool bStartPlaying = false;      ///< the next LoadPlaylist also starts the sound
    bool bResuming = false;          ///< the next start seeks to ResumePosition
    std::int32_t ResumePosition = 0; ///< seconds
    std::int32_t VolumeSerial = -1;  ///< disc that holds the list; -1 or 0: no disc
    bool bPaused = false;
    bool bShuffle = false;
    std::int16_t CurrentChannel = 0; ///< satellite channel wanted with ListFile; 0: the saved one
    std::string ListTitle;           ///< what the list is called on the player's title line

    bool OnDisc() const { return VolumeSerial != -1 && VolumeSerial != 0; }
};

} // namespace vk
