// kb.ini in memory: the key codes of the actions, as decimal text.
#pragma once

#include "core/ini_file.h"

#include <string>

namespace vk {

/// Windows virtual-key codes as decimal text; an empty text never matches. Members bear the names
/// of their keys in section keyboard.
struct KeyMap {
    std::string gps, MP3toRadio, mute, ok, quit, vup, Vdown, forward, back, up, down, kbSWMP,
        shuffle, startvis, kbpageup, kbpagedown, play, pause, FF, REW, kbSearch, addfav, nextvis,
        power;
};

/// Reads all 24 keys of `file`; a missing one stays empty.
KeyMap ReadKeyMap(Ini& ini, const std::string& file);

/// True when `code` is the key of an action: equal to its mapped text, which must not be empty, or
/// to `fixed`, the code that works even with a bad map ("" for none).
inline bool IsKey(const std::string& code, const std::string& mapped, std::string_view fixed = {}) {
    return (!mapped.empty() && code == mapped) || (!fixed.empty() && code == fixed);
}

} // namespace vk
