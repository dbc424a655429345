// The keys of the audio player, the remote's, its wheel and its held buttons.
#include "playback/audio/audio_player.h"

namespace vk {

namespace {

constexpr int SkipMs = 500; // between two tracks, of a held key

// In the order in which codes of the remote are compared.
constexpr ActionRow<AudioPlayer> Rows[] = {
    {Action::startvis, &AudioPlayer::DoVis},
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
    {Action::addfav, &AudioPlayer::AddToFavorites},
    {Action::MP3toRadio, &AudioPlayer::TSRadio2MP3Btn_Click},
    {Action::gps, &AudioPlayer::LoadGPS},
    {Action::tracktime, &AudioPlayer::TrackTimeLabel_Click},
    {Action::nextvis, &AudioPlayer::NextVis},
    {Action::apps, &AudioPlayer::ShowApplications},
};

// What means something while a visualisation hides the list. Enter ends it: a row that nobody sees
// is not to be played.
constexpr ActionRow<AudioPlayer> RowsUnderVis[] = {
    {Action::startvis, &AudioPlayer::DoVis},     {Action::ok, &AudioPlayer::DoVis},
    {Action::shuffle, &AudioPlayer::setshuffle}, {Action::quit, &AudioPlayer::doquit},
    {Action::pause, &AudioPlayer::DoPause},      {Action::play, &AudioPlayer::DoPlay},
    {Action::REW, &AudioPlayer::DoRW},           {Action::FF, &AudioPlayer::DoFF},
    {Action::Vdown, &AudioPlayer::VolDown},      {Action::vup, &AudioPlayer::VolUp},
    {Action::forward, &AudioPlayer::MoveAhead},  {Action::back, &AudioPlayer::MoveBack},
    {Action::mute, &AudioPlayer::domute},        {Action::nextvis, &AudioPlayer::NextVis},
    {Action::gps, &AudioPlayer::LoadGPS},        {Action::addfav, &AudioPlayer::AddToFavorites},
};

} // namespace

bool AudioPlayer::Form_KeyDown(const std::string& code) {
    return DoAction(InputCode(code, n_.keys));
}

bool AudioPlayer::DoAction(const InputCode& code) {
    return vis_.On() ? DoUnderVis(code) : RunAction(*this, Rows, code);
}

// Every key comes here, so that what means nothing is used up.
bool AudioPlayer::DoUnderVis(const InputCode& code) {
    RunAction(*this, RowsUnderVis, code);
    return !code.Mapped(Action::power) && !code.Mapped(Action::dim);
}

bool AudioPlayer::Repeats(const InputCode& key) const {
    if (!key.Means(Action::forward) && !key.Means(Action::back)) return GoesOnWhileHeld(key);
    const bool turnsSearch = n_.audio.PlayMode == PlayFM; // which a second one ends
    return !turnsSearch && base_.clock.TickMs() - skippedMs_ >= SkipMs;
}

void AudioPlayer::Wheel(int delta) {
    if (delta == 0) return;
    const bool up = delta > 0;
    if (base_.settings.values.MouseFunction == 1) {
        for (std::int32_t i = 0; i < base_.settings.values.WheelSteps(); ++i)
            up ? VolUp() : VolDown();
        return;
    }
    if (vis_.On()) return; // nobody sees what it would move
    Ask(up ? "FineTuneUp" : "FineTuneDown", [&](PlayerSource& source) {
        if (!source.WheelSteps()) return up ? MoveUp() : MoveDown();
        up ? source.DoFF() : source.DoRW();
    });
}

void AudioPlayer::DoHeld(HeldAction action) {
    switch (action) {
    case HeldNone:
        return;
    case HeldVolUp:
        return VolUp();
    case HeldVolDown:
        return VolDown();
    case HeldForward:
    case HeldRewind:
        return Hold(action == HeldForward);
    case HeldScrollUp:
        return MoveUp();
    case HeldScrollDown:
        return MoveDown();
    }
}

} // namespace vk
