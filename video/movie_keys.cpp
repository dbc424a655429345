#include "video/movie_keys.h"

#include "skin/touch_target.h"

namespace vk {

// In the order in which codes of the remote are compared.
const ActionRow<MovieKeys> MovieKeys::Rows[] = {
    {Action::quit, &MovieKeys::doquit},     {Action::pause, &MovieKeys::DoPause},
    {Action::play, &MovieKeys::Play},       {Action::REW, &MovieKeys::DoRW},
    {Action::FF, &MovieKeys::DoFF},         {Action::SWMP, &MovieKeys::Swap},
    {Action::ok, &MovieKeys::runok},        {Action::Vdown, &MovieKeys::VolDown},
    {Action::vup, &MovieKeys::VolUp},       {Action::down, &MovieKeys::MoveDown},
    {Action::up, &MovieKeys::MoveUp},       {Action::forward, &MovieKeys::MoveAhead},
    {Action::back, &MovieKeys::MoveBack},   {Action::pagedown, &MovieKeys::Next},
    {Action::pageup, &MovieKeys::Previous}, {Action::mute, &MovieKeys::domute},
    {Action::gps, &MovieKeys::LoadGPS},
};

bool MovieKeys::DoAction(const InputCode& code) {
    return RunAction(*this, Rows, code);
}

// A film that is skipped is lost from where it was.
bool MovieKeys::Repeats(const InputCode& key) const {
    return GoesOnWhileHeld(key) && !key.Means(Action::pageup) && !key.Means(Action::pagedown);
}

bool MovieKeys::DiscKey(DvdKey key) {
    MovieDisc& disc = Films().disc();
    const bool upDown = key == DvdKey::Up || key == DvdKey::Down;
    if (!disc.IsOpen() || (!upDown && !disc.InMenu())) return false;
    disc.Press(key);
    return true;
}

void MovieKeys::runok() {
    if (!DiscKey(DvdKey::Enter)) DoPause();
}

// A film has nothing to scroll: up and down are the volume, as on the wheel.
void MovieKeys::MoveUp() {
    if (!DiscKey(DvdKey::Up)) VolUp();
}

void MovieKeys::MoveDown() {
    if (!DiscKey(DvdKey::Down)) VolDown();
}

void MovieKeys::MoveBack() {
    if (!DiscKey(DvdKey::Left)) DoRW();
}

void MovieKeys::MoveAhead() {
    if (!DiscKey(DvdKey::Right)) DoFF();
}

void MovieKeys::Wheel(int delta) {
    if (delta == 0) return;
    for (std::int32_t i = 0; i < n_.base.settings.values.WheelSteps(); ++i)
        delta > 0 ? VolUp() : VolDown();
}

void MovieKeys::PicturePlaced(int left, int top, int width, int height) {
    MovieDisc& disc = Films().disc();
    if (disc.IsOpen()) disc.Control().setwnd(left, top, width, height);
}

// In a disc's menu the bars come in besides, since its buttons may be anywhere.
// Without bars a corner leads out, and the rest of the picture pauses it: there is nothing else to
// be touched.
void MovieKeys::PictureTouched(int x, int y, int width, int height) {
    MovieBars& bars = n_.player.bars();
    MovieDisc& disc = Films().disc();
    const int side = TouchSide(height);
    const bool corner = x >= width - side && y < side;
    if (!bars.Offered() && corner) return doquit();
    const bool taken = disc.IsOpen() && disc.Control().touch(x, y);
    if (bars.Offered()) return bars.Want();
    if (!taken) DoPause();
}

} // namespace vk
