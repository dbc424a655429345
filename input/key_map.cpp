#include "input/key_map.h"

#include <array>
#include <utility>

namespace vk {

KeyMap ReadKeyMap(Ini& ini, const std::string& file) {
    KeyMap map;
    const std::array<std::pair<const char*, std::string*>, 24> keys = {{
        {"gps", &map.gps},
        {"MP3toRadio", &map.MP3toRadio},
        {"mute", &map.mute},
        {"ok", &map.ok},
        {"quit", &map.quit},
        {"vup", &map.vup},
        {"Vdown", &map.Vdown},
        {"forward", &map.forward},
        {"back", &map.back},
        {"up", &map.up},
        {"down", &map.down},
        {"kbSWMP", &map.kbSWMP},
        {"shuffle", &map.shuffle},
        {"startvis", &map.startvis},
        {"kbpageup", &map.kbpageup},
        {"kbpagedown", &map.kbpagedown},
        {"play", &map.play},
        {"pause", &map.pause},
        {"FF", &map.FF},
        {"REW", &map.REW},
        {"kbSearch", &map.kbSearch},
        {"addfav", &map.addfav},
        {"nextvis", &map.nextvis},
        {"power", &map.power},
    }};
    for (const auto& [name, value] : keys)
        *value = ini.ReadText(file, "keyboard", name);
    return map;
}

} // namespace vk
