// keys.ini in memory: the remote's code of each action.
#pragma once

#include "core/ini_file.h"

#include <array>
#include <string>

namespace vk {

/// Code texts as the receiver gives them; an empty text never matches. Members bear the names of
/// their keys in section remote_keys.
struct RemoteMap {
    std::string ShowGPS, MP3toRadio, mute, ok, quit, vup, Vdown, forward, back, up, down, SWMP,
        shuffle, startvis, irpageup, irpagedown, Play, Pause, FF, REW, POWER, IRSearch, AddFav,
        nextvis;
};

/// One key of the section and where its value is held.
struct RemoteKey {
    const char* name;
    std::string RemoteMap::*code;
};

/// All keys in the order in which they are read.
extern const std::array<RemoteKey, 24> RemoteKeys;

/// Reads all keys of `file`; a missing one stays empty. To be called again when a code was learnt.
RemoteMap ReadRemoteMap(Ini& ini, const std::string& file);

/// Stores the code of one action. False when the file could not be written.
bool WriteRemoteKey(Ini& ini, const std::string& file, const std::string& key,
                    const std::string& code);

} // namespace vk
