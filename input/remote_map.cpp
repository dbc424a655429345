#include "input/remote_map.h"

namespace vk {

namespace {

constexpr const char* Section = "remote_keys";

} // namespace

RemoteMap ReadRemoteMap(Ini& ini, const std::string& file) {
    RemoteMap map;
    for (const ActionNames& names : Actions)
        map[names.action] = ini.ReadText(file, Section, names.remote);
    return map;
}

bool WriteRemoteKey(Ini& ini, const std::string& file, Action action, const std::string& code) {
    return ini.WriteINI(file, Section, NamesOf(action).remote, code) == 1;
}

} // namespace vk
