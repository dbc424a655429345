#include "input/actions.h"

namespace vk {

const std::array<ActionNames, ActionCount> Actions = {{
    {Action::gps, "gps", "ShowGPS", "", "GPS"},
    {Action::MP3toRadio, "MP3toRadio", "MP3toRadio", "", "Radio"},
    {Action::mute, "mute", "mute", "", "Mute"},
    {Action::ok, "ok", "ok", "13", "OK"},
    {Action::quit, "quit", "quit", "27", "Quit"},
    {Action::vup, "vup", "vup", "", "Volume up"},
    {Action::Vdown, "Vdown", "Vdown", "", "Volume down"},
    {Action::forward, "forward", "forward", "39", "Forward"},
    {Action::back, "back", "back", "37", "Back"},
    {Action::up, "up", "up", "38", "Up"},
    {Action::down, "down", "down", "40", "Down"},
    {Action::SWMP, "kbSWMP", "SWMP", "", "Switch"},
    {Action::shuffle, "shuffle", "shuffle", "", "Shuffle"},
    {Action::startvis, "startvis", "startvis", "", "Visuals"},
    {Action::pageup, "kbpageup", "irpageup", "", "Page up"},
    {Action::pagedown, "kbpagedown", "irpagedown", "", "Page down"},
    {Action::play, "play", "Play", "", "Play"},
    {Action::pause, "pause", "Pause", "", "Pause"},
    {Action::FF, "FF", "FF", "", "Fast forward"},
    {Action::REW, "REW", "REW", "", "Rewind"},
    {Action::Search, "kbSearch", "IRSearch", "", "Search"},
    {Action::addfav, "addfav", "AddFav", "", "Add favourite"},
    {Action::nextvis, "nextvis", "nextvis", "", "Next visual"},
    {Action::power, "power", "POWER", "", "Power"},
}};

bool GoesOnWhileHeld(const InputCode& key) {
    static constexpr Action Held[] = {
        Action::up,       Action::down, Action::back,  Action::forward, Action::pageup,
        Action::pagedown, Action::vup,  Action::Vdown, Action::FF,      Action::REW};
    return std::ranges::any_of(
        Held, [&](Action action) { return key.Mapped(action) || key.Fixed(action); });
}

} // namespace vk
