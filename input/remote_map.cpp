#include "input/remote_map.h"

namespace vk {

const std::array<RemoteKey, 24> RemoteKeys = {{
    {"ShowGPS", &RemoteMap::ShowGPS},
    {"MP3toRadio", &RemoteMap::MP3toRadio},
    {"mute", &RemoteMap::mute},
    {"ok", &RemoteMap::ok},
    {"quit", &RemoteMap::quit},
    {"vup", &RemoteMap::vup},
    {"Vdown", &RemoteMap::Vdown},
    {"forward", &RemoteMap::forward},
    {"back", &RemoteMap::back},
    {"up", &RemoteMap::up},
    {"down", &RemoteMap::down},
    {"SWMP", &RemoteMap::SWMP},
    {"shuffle", &RemoteMap::shuffle},
    {"startvis", &RemoteMap::startvis},
    {"irpageup", &RemoteMap::irpageup},
    {"irpagedown", &RemoteMap::irpagedown},
    {"Play", &RemoteMap::Play},
    {"Pause", &RemoteMap::Pause},
    {"FF", &RemoteMap::FF},
    {"REW", &RemoteMap::REW},
    {"POWER", &RemoteMap::POWER},
    {"IRSearch", &RemoteMap::IRSearch},
    {"AddFav", &RemoteMap::AddFav},
    {"nextvis", &RemoteMap::nextvis},
}};

namespace {

constexpr const char* Section = "remote_keys";

} // namespace

RemoteMap ReadRemoteMap(Ini& ini, const std::string& file) {
    RemoteMap map;
    for (const RemoteKey& key : RemoteKeys)
        map.*key.code = ini.ReadText(file, Section, key.name);
    return map;
}

bool WriteRemoteKey(Ini& ini, const std::string& file, const std::string& key,
                    const std::string& code) {
    return ini.WriteINI(file, Section, key, code) == 1;
}

} // namespace vk
