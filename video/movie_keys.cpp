// The keys of the movie player, the remote's, its wheel, its held buttons and touches.
#include "skin/touch_target.h"
#include "video/movie_player.h"

namespace vk {

namespace {

constexpr int HeldEvery = 3;    // ticks between two steps of a held button
constexpr int HeldSeconds = 30; // of such a step

// In the order in which codes of the remote are compared.
constexpr ActionRow<MoviePlayer> Rows[] = {
    {Action::quit, &MoviePlayer::doquit},
    {Action::pause, &MoviePlayer::DoPause},
    {Action::play, &MoviePlayer::UnPauseIt},
    {Action::REW, &MoviePlayer::DoRW},
    {Action::FF, &MoviePlayer::DoFF},
    {Action::SWMP, &MoviePlayer::Swap},
    {Action::ok, &MoviePlayer::runok},
    {Action::Vdown, &MoviePlayer::VolDown},
    {Action::vup, &MoviePlayer::VolUp},
    {Action::down, &MoviePlayer::MoveDown},
    {Action::up, &MoviePlayer::MoveUp},
    {Action::forward, &MoviePlayer::MoveAhead},
    {Action::back, &MoviePlayer::MoveBack},
    {Action::pagedown, &MoviePlayer::NextMovie},
    {Action::pageup, &MoviePlayer::PreviousMovie},
    {Action::mute, &MoviePlayer::domute},
    {Action::gps, &MoviePlayer::LoadGPS},
};

} // namespace

bool MoviePlayer::Form_KeyDown(const std::string& code) {
    return DoAction(InputCode(code, n_.keys));
}

bool MoviePlayer::DoAction(const InputCode& code) {
    return RunAction(*this, Rows, code);
}

// A film that is skipped is lost from where it was.
bool MoviePlayer::Repeats(const InputCode& key) const {
    return GoesOnWhileHeld(key) && !key.Means(Action::pageup) && !key.Means(Action::pagedown);
}

// A disc's menu is worked by the arrows and Enter. Up and down are the disc's even in a title.
bool MoviePlayer::DiscKey(DvdKey key) {
    const bool upDown = key == DvdKey::Up || key == DvdKey::Down;
    if (!disc_.IsOpen() || (!upDown && !disc_.InMenu())) return false;
    switch (key) {
    case DvdKey::Up:
        disc_.Control().uparrow();
        break;
    case DvdKey::Down:
        disc_.Control().downarrow();
        break;
    case DvdKey::Left:
        disc_.Control().leftarrow();
        break;
    case DvdKey::Right:
        disc_.Control().rightarrow();
        break;
    case DvdKey::Enter:
        disc_.Control().enterbutton();
        break;
    }
    return true;
}

void MoviePlayer::runok() {
    if (DiscKey(DvdKey::Enter)) return;
    DoPause();
}

void MoviePlayer::DoPause() {
    WantBars();
    deck_.Paused() ? UnPauseIt() : PauseIt();
}

// A film has nothing to scroll: up and down are the volume, as on the wheel.
void MoviePlayer::MoveUp() {
    if (DiscKey(DvdKey::Up)) return;
    VolUp();
}

void MoviePlayer::MoveDown() {
    if (DiscKey(DvdKey::Down)) return;
    VolDown();
}

void MoviePlayer::MoveBack() {
    if (!DiscKey(DvdKey::Left)) DoRW();
}

void MoviePlayer::MoveAhead() {
    if (!DiscKey(DvdKey::Right)) DoFF();
}

void MoviePlayer::DoFF() {
    FF_Click(StepSeconds);
}

void MoviePlayer::DoRW() {
    RW_Click(StepSeconds);
}

void MoviePlayer::VolUp() {
    n_.loudness.VolUp();
}

void MoviePlayer::VolDown() {
    n_.loudness.VolDown();
}

void MoviePlayer::domute() {
    n_.loudness.domute();
}

void MoviePlayer::Wheel(int delta) {
    if (delta == 0) return;
    for (std::int32_t i = 0; i < base_.settings.values.WheelSteps(); ++i)
        delta > 0 ? VolUp() : VolDown();
}

void MoviePlayer::PicturePlaced(int left, int top, int width, int height) {
    if (disc_.IsOpen()) disc_.Control().setwnd(left, top, width, height);
}

// In a disc's menu the bars come in besides, since its buttons may be anywhere.
// Without bars a corner leads out, and the rest of the picture pauses it: there is nothing else to
// be touched.
void MoviePlayer::PictureTouched(int x, int y, int width, int height) {
    const int side = TouchSide(height);
    const bool corner = x >= width - side && y < side;
    if (!BarsOffered() && corner) return doquit();
    const bool taken = disc_.IsOpen() && disc_.Control().touch(x, y);
    if (BarsOffered()) return WantBars();
    if (!taken) DoPause();
}

void MoviePlayer::DoHeld(HeldAction action) {
    if (action == HeldVolUp) return VolUp();
    if (action == HeldVolDown) return VolDown();
    if (action == HeldNone || ticks_ % HeldEvery != 0) return;
    action == HeldForward ? FF_Click(HeldSeconds) : RW_Click(HeldSeconds);
}

void MoviePlayer::Release(bool inside) {
    const HeldAction action = held_.Action();
    const bool click = held_.Release(base_.settings.values.TSRepeatVal);
    if (!click || !inside) return;
    base_.commands.Run(Commands::When::Queue, [this, action] {
        if (action == HeldForward) return DoFF();
        if (action == HeldRewind) return DoRW();
        action == HeldVolUp ? VolUp() : VolDown();
    });
}

} // namespace vk
