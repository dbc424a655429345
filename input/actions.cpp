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
    {Action::tracktime, "tracktime", "TrackTime", "", "Track time"},
    {Action::eject, "eject", "Eject", "", "Eject"},
    {Action::resume, "resume", "Resume", "", "Resume"},
    {Action::apps, "apps", "Apps", "", "Programs"},
    {Action::dim, "dim", "Dim", "", "Dim"},
}};

std::optional<Action> InputCode::Movement() const {
    if (!key_ || text_.empty()) return std::nullopt;
    const auto of = [](const auto& matches) {
        const auto* found = std::ranges::find_if(Actions, [&](const ActionNames& names) {
            return HasFixedKey(names.action) && matches(names);
        });
        return found == Actions.end() ? std::nullopt : std::optional(found->action);
    };
    const auto fixed = of([&](const ActionNames& names) { return text_ == names.fixed; });
    if (fixed && (fixed == Action::ok || fixed == Action::quit || Mapped(*fixed))) return fixed;
    const auto mapped = of([&](const ActionNames& names) {
        const bool arrow = names.action != Action::ok && names.action != Action::quit;
        return Mapped(names.action) && (arrow || !fixed);
    });
    return mapped ? mapped : fixed;
}

bool InputCode::Means(Action action) const {
    const auto moves = Movement();
    return moves ? action == moves : Mapped(action);
}

bool GoesOnWhileHeld(const InputCode& key) {
    static constexpr Action Held[] = {
        Action::up,       Action::down, Action::back,  Action::forward, Action::pageup,
        Action::pagedown, Action::vup,  Action::Vdown, Action::FF,      Action::REW};
    return std::ranges::any_of(Held, [&](Action action) { return key.Means(action); });
}

} // namespace vk
