// The keys of the browser, and the remote's.
#include "browser/browser.h"

#include <algorithm>
#include <array>
#include <span>

namespace vk {

namespace {

constexpr std::size_t KeyboardRows = 6; // the first rows, which the drawn keyboard understands

constexpr ActionRow<Browser> Rows[] = {
    {Action::ok, &Browser::runok},          {Action::quit, &Browser::doquit},
    {Action::forward, &Browser::MoveAhead}, {Action::back, &Browser::MoveBack},
    {Action::up, &Browser::MoveUp},         {Action::down, &Browser::MoveDown},
    {Action::vup, &Browser::VolUp},         {Action::Vdown, &Browser::VolDown},
    {Action::SWMP, &Browser::Swap},         {Action::pageup, &Browser::PgUp},
    {Action::pagedown, &Browser::PgDn},     {Action::Search, &Browser::JumpToSearch},
    {Action::gps, &Browser::ShowGPS},       {Action::MP3toRadio, &Browser::ShowRadio},
};

// What the player does with these it does out of sight, too.
constexpr std::array PlayerActions = {Action::mute, Action::shuffle, Action::play,  Action::pause,
                                      Action::FF,   Action::REW,     Action::addfav};

} // namespace

// On the drawn keyboard a key that types a letter types it, whatever else it is mapped to.
bool Browser::Form_KeyDown(const std::string& code) {
    const InputCode key(code, needs_.keys);
    const auto onKeyboard = std::span(Rows).first(KeyboardRows);
    if (KeyboardShown && (keyboard_.KeyDown(code) || RunAction(*this, onKeyboard, key)))
        return true;
    return DoAction(key);
}

// Of the keys that type only the one that deletes goes on.
bool Browser::Repeats(const InputCode& key) const {
    constexpr const char* Backspace = "8";
    if (KeyboardShown && KeyboardModel::Types(key.Text())) return key.Text() == Backspace;
    return GoesOnWhileHeld(key);
}

bool Browser::DoAction(const InputCode& code) {
    if (RunAction(*this, Rows, code)) return true;
    const auto* player = needs_.screens.Find("playmp3");
    if (!player ||
        std::ranges::none_of(PlayerActions, [&](Action action) { return code.Mapped(action); }))
        return false;
    bool used = false;
    ShowChangeOfVolume([&] { used = player->DoAction(code); });
    return used;
}

} // namespace vk
