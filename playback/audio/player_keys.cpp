// The keys of the audio player.
#include "playback/audio/audio_player.h"

namespace vk {

struct AudioPlayer::Key {
    std::string KeyMap::*mapped;
    const char* fixed; ///< the code that works even with a bad map, "" for none
    void (AudioPlayer::*operation)();
};

const AudioPlayer::Key AudioPlayer::Keys[] = {
    {&KeyMap::ok, "13", &AudioPlayer::runok},
    {&KeyMap::quit, "27", &AudioPlayer::doquit},
    {&KeyMap::vup, "", &AudioPlayer::VolUp},
    {&KeyMap::Vdown, "", &AudioPlayer::VolDown},
    {&KeyMap::forward, "39", &AudioPlayer::MoveAhead},
    {&KeyMap::back, "37", &AudioPlayer::MoveBack},
    {&KeyMap::up, "38", &AudioPlayer::MoveUp},
    {&KeyMap::down, "40", &AudioPlayer::MoveDown},
    {&KeyMap::mute, "", &AudioPlayer::domute},
    {&KeyMap::kbSWMP, "", &AudioPlayer::Swap},
    {&KeyMap::shuffle, "", &AudioPlayer::setshuffle},
    {&KeyMap::kbpageup, "", &AudioPlayer::PgUp},
    {&KeyMap::kbpagedown, "", &AudioPlayer::PgDn},
    {&KeyMap::play, "", &AudioPlayer::DoPlay},
    {&KeyMap::pause, "", &AudioPlayer::DoPause},
    {&KeyMap::addfav, "", &AudioPlayer::AddFavKBIR},
    {&KeyMap::MP3toRadio, "", &AudioPlayer::TSRadio2MP3Btn_Click},
    {&KeyMap::FF, "", &AudioPlayer::DoFF},
    {&KeyMap::REW, "", &AudioPlayer::DoRW},
};

bool AudioPlayer::Form_KeyDown(const std::string& code) {
    // While a list is on its way to the player process a press would meet half of it.
    if (n_.app.ListBusy) return true;
    // A fixed code counts only after all mapped ones, so that a map may give it another meaning.
    for (const bool fixed : {false, true})
        for (const Key& key : Keys)
            if (fixed ? IsKey(code, {}, key.fixed) : IsKey(code, n_.keys.*key.mapped)) {
                (this->*key.operation)();
                return true;
            }
    const bool gps = IsKey(code, n_.keys.gps) && n_.loadGPS;
    const bool power = IsKey(code, n_.keys.power) && n_.powerAction;
    if (gps)
        n_.loadGPS();
    else if (power)
        n_.powerAction();
    return gps || power;
}

} // namespace vk
