#include "playback/audio/player_buttons.h"

namespace vk {

namespace {

struct HeldPicture {
    HeldAction action;
    PlayerButton button;
    const char* plain;
    const char* pressed;
};

constexpr HeldPicture HeldPictures[] = {
    {HeldVolUp, PlayerButton::VolumeUp, "vup.gif", "vupsel.gif"},
    {HeldVolDown, PlayerButton::VolumeDown, "vdown.gif", "vdownsel.gif"},
    {HeldForward, PlayerButton::FastForward, "ff.gif", "ffsel.gif"},
    {HeldRewind, PlayerButton::Rewind, "rw.gif", "rwsel.gif"},
};

void ShowHeld(PlayerView& view, HeldAction action, bool pressed) {
    for (const HeldPicture& held : HeldPictures)
        if (held.action == action) view.SetButton(held.button, pressed ? held.pressed : held.plain);
}

} // namespace

void PlayerButtons::Press(HeldAction action) {
    held_.Press(action);
    ShowHeld(view_, action, true);
}

void PlayerButtons::LetGo() {
    ShowHeld(view_, held_.Action(), false);
    held_.Press(HeldNone);
}

// A tap that fell between two ticks still counts, and so does one that ends while something runs.
void PlayerButtons::Release(bool inside) {
    const HeldAction action = held_.Action();
    const bool click = held_.Release(base_.settings.values.TSRepeatVal);
    ShowHeld(view_, action, false);
    if (!click || !inside) return;
    base_.commands.Run(Commands::When::Queue, [this, action] {
        const bool skips = action == HeldForward || action == HeldRewind;
        skips ? actions_.click(action == HeldForward) : actions_.hold(action);
    });
}

void PlayerButtons::Tick() {
    const HeldAction action = held_.Tick(base_.settings.values.TSRepeatVal);
    if (action != HeldNone) actions_.hold(action);
}

bool PlayerButtons::TurnsVolume() const {
    return held_.Action() == HeldVolUp || held_.Action() == HeldVolDown;
}

} // namespace vk
