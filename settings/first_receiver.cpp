#include "settings/first_receiver.h"

#include "input/remote_map.h"

namespace vk {

namespace {

struct ButtonName {
    Action action;
    const char* name;
};

// The names that lircd's configurations share: those of linux/input-event-codes.h.
constexpr ButtonName UsualNames[] = {
    {Action::ok, "KEY_OK"},
    {Action::quit, "KEY_EXIT"},
    {Action::up, "KEY_UP"},
    {Action::down, "KEY_DOWN"},
    {Action::back, "KEY_LEFT"},
    {Action::forward, "KEY_RIGHT"},
    {Action::vup, "KEY_VOLUMEUP"},
    {Action::Vdown, "KEY_VOLUMEDOWN"},
    {Action::mute, "KEY_MUTE"},
    {Action::play, "KEY_PLAY"},
    {Action::pause, "KEY_PAUSE"},
    {Action::FF, "KEY_FASTFORWARD"},
    {Action::REW, "KEY_REWIND"},
    {Action::pageup, "KEY_CHANNELUP"},
    {Action::pagedown, "KEY_CHANNELDOWN"},
    {Action::SWMP, "KEY_MENU"},
    {Action::shuffle, "KEY_SHUFFLE"},
    {Action::MP3toRadio, "KEY_RADIO"},
    {Action::Search, "KEY_SEARCH"},
    {Action::addfav, "KEY_FAVORITES"},
    {Action::power, "KEY_POWER"},
};

} // namespace

bool TakeLirc(SettingsStore& settings, const std::function<bool()>& open) {
    if (settings.values.remoteStatus) return false;
    const std::string type = settings.Get(setting::remoteType);
    settings.Write({{setting::remoteStatus, true}, {setting::remoteType, "LIRC"}});
    if (!open()) {
        settings.Write({{setting::remoteStatus, false}, {setting::remoteType, type}});
        open(); // waits for nobody
        return false;
    }
    const std::string file = settings.File("keys.ini");
    const RemoteMap known = ReadRemoteMap(settings.ini(), file);
    for (const ButtonName& button : UsualNames)
        if (known[button.action].empty())
            WriteRemoteKey(settings.ini(), file, button.action, button.name);
    return true;
}

} // namespace vk
