// The keys of the browser.
#include "library/browser/browser.h"

#include <array>

namespace vk {

struct Browser::Key {
    std::string KeyMap::*mapped;
    const char* fixed; ///< the code that works even with a bad map, "" for none
    void (Browser::*operation)();
    bool forKeyboard = false; ///< goes before the letters while the drawn keyboard is shown
};

const Browser::Key Browser::Keys[] = {
    {&KeyMap::ok, "13", &Browser::runok, true},
    {&KeyMap::quit, "27", &Browser::doquit, true},
    {&KeyMap::vup, "", &Browser::VolUp},
    {&KeyMap::Vdown, "", &Browser::VolDown},
    {&KeyMap::forward, "39", &Browser::MoveAhead, true},
    {&KeyMap::back, "37", &Browser::MoveBack, true},
    {&KeyMap::up, "38", &Browser::MoveUp, true},
    {&KeyMap::down, "40", &Browser::MoveDown, true},
    {&KeyMap::kbSWMP, "", &Browser::Swap},
    {&KeyMap::kbpageup, "", &Browser::PgUp},
    {&KeyMap::kbpagedown, "", &Browser::PgDn},
    {&KeyMap::kbSearch, "", &Browser::JumpToSearch},
    {&KeyMap::gps, "", &Browser::ShowGPS},
    {&KeyMap::MP3toRadio, "", &Browser::ShowRadio},
};

// What the player does with a key it does out of sight, too.
static constexpr std::array PlayerKeys = {&KeyMap::mute,  &KeyMap::shuffle, &KeyMap::play,
                                          &KeyMap::pause, &KeyMap::FF,      &KeyMap::REW,
                                          &KeyMap::addfav};

// A fixed code counts only after all mapped ones, so that a map may give it another meaning.
bool Browser::DoKey(const std::string& code, bool forKeyboard) {
    for (const bool fixed : {false, true})
        for (const Key& key : Keys) {
            if (forKeyboard && !key.forKeyboard) continue;
            if (!(fixed ? code == key.fixed : IsKey(code, needs_.keys.*key.mapped))) continue;
            (this->*key.operation)();
            return true;
        }
    return false;
}

bool Browser::Form_KeyDown(const std::string& code) {
    if (code.empty()) return false;
    if (KeyboardShown && (DoKey(code, true) || keyboard_.KeyDown(code))) return true;
    if (DoKey(code, false)) return true;
    const auto* player = needs_.screens.Find("playmp3");
    for (const auto key : PlayerKeys)
        if (player && IsKey(code, needs_.keys.*key)) return player->Form_KeyDown(code);
    return false;
}

} // namespace vk
