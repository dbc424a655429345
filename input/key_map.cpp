#include "input/key_map.h"

namespace vk {

namespace {

constexpr const char* Section = "keyboard";

} // namespace

KeyMap ReadKeyMap(Ini& ini, const std::string& file) {
    KeyMap map;
    for (const ActionNames& names : Actions)
        map[names.action] = ini.ReadText(file, Section, names.key);
    return map;
}

bool WriteKey(Ini& ini, const std::string& file, Action action, const std::string& code) {
    return ini.WriteINI(file, Section, NamesOf(action).key, code) == 1;
}

} // namespace vk
