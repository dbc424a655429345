// The keys of the audio player, and the remote's.
#include "playback/audio/audio_player.h"

namespace vk {

namespace {

// In the order in which codes of the remote are compared.
constexpr ActionRow<AudioPlayer> Rows[] = {
    {Action::shuffle, &AudioPlayer::setshuffle},
    {Action::pagedown, &AudioPlayer::PgDn},
    {Action::pageup, &AudioPlayer::PgUp},
    {Action::quit, &AudioPlayer::doquit},
    {Action::pause, &AudioPlayer::DoPause},
    {Action::play, &AudioPlayer::DoPlay},
    {Action::REW, &AudioPlayer::DoRW},
    {Action::FF, &AudioPlayer::DoFF},
    {Action::SWMP, &AudioPlayer::Swap},
    {Action::ok, &AudioPlayer::runok},
    {Action::Vdown, &AudioPlayer::VolDown},
    {Action::vup, &AudioPlayer::VolUp},
    {Action::down, &AudioPlayer::MoveDown},
    {Action::up, &AudioPlayer::MoveUp},
    {Action::forward, &AudioPlayer::MoveAhead},
    {Action::back, &AudioPlayer::MoveBack},
    {Action::mute, &AudioPlayer::domute},
    {Action::addfav, &AudioPlayer::AddFavKBIR},
    {Action::MP3toRadio, &AudioPlayer::TSRadio2MP3Btn_Click},
    {Action::gps, &AudioPlayer::LoadGPS},
};

} // namespace

bool AudioPlayer::Form_KeyDown(const std::string& code) {
    return DoAction(InputCode(code, n_.keys));
}

bool AudioPlayer::DoAction(const InputCode& code) {
    // While a list is on its way to the player process a press would meet half of it.
    return n_.app.ListBusy || RunAction(*this, Rows, code);
}

void AudioPlayer::LoadGPS() {
    if (n_.loadGPS) n_.loadGPS();
}

} // namespace vk
