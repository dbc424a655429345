// The player's 100 ms timer, and the buttons that act on its ticks.
#include "core/optical_drive.h"
#include "playback/audio/audio_player.h"

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

// The waits for the player process run events, so a tick can come inside of one: it is left out.
void AudioPlayer::Timer2_Timer() {
    if (ticking_) return;
    ticking_ = true;
    TrapAndLog(n_.report, "PlayMp3.Timer2.Timer has errored! -", [&] { Tick(); });
    ticking_ = false;
}

void AudioPlayer::Tick() {
    if (n_.checkDaylight) n_.checkDaylight();
    ServeRefresh();
    if (PlayerSource* source = Source()) source->Tick();
    if (TickCount == 1) {
        FirstTick();
    } else if (TickCount >= 10 || bForceUpdate) {
        TickCount = 0;
        bForceUpdate = false;
        if (PlayerSource* source = Source()) source->EverySecond();
    }
    ++TickCount;
    ServeHeldButton();
    if (rows_.PageHasMoved()) ListMoved();
}

void AudioPlayer::ServeRefresh() {
    if (refreshIn_ == 0 || --refreshIn_ > 0) return;
    view_.ReDrawList();
    view_.ReDrawCover();
}

void AudioPlayer::FirstTick() {
    cover_.EverySecond();
    clockLine_.Refresh();
    KeepInFront();
    if (DiscIsGone()) doquit();
    volume_.HideWhenOld(held_.Action() == HeldVolUp || held_.Action() == HeldVolDown);
}

void AudioPlayer::KeepInFront() {
    const bool ours = n_.settings.values.alwaysontop && n_.screens.CurrentForm == "playmp3";
    if (ours || pendingForeground_ > 0) n_.window.ForceForegroundWindow();
    if (pendingForeground_ > 0) --pendingForeground_;
}

bool AudioPlayer::DiscIsGone() const {
    if (n_.audio.PlayMode != PlayAudio || !n_.audio.OnDisc()) return false;
    const std::string drive = OpticalRoot(n_.volumes, n_.settings.values.CDDriveLetter);
    return !drive.empty() && !n_.volumes.IsReady(drive);
}

void AudioPlayer::Press(HeldAction action) {
    if (n_.app.ListBusy) return;
    held_.Press(action);
    ShowHeld(view_, action, true);
}

void AudioPlayer::LetGo() {
    ShowHeld(view_, held_.Action(), false);
    held_.Press(HeldNone);
}

void AudioPlayer::Release(bool inside) {
    const HeldAction action = held_.Action();
    const bool click = held_.Release(n_.settings.values.TSRepeatVal);
    ShowHeld(view_, action, false);
    if (!click || !inside) return;
    const bool ahead = action == HeldForward;
    if (!ahead && action != HeldRewind)
        return DoHeld(action); // a tap that fell between two ticks still counts
    bForceUpdate = true;
    WithSource(ahead ? "MoveAhead" : "MoveBack",
               [&](PlayerSource& source) { source.ShortPress(ahead); });
}

void AudioPlayer::ServeHeldButton() {
    DoHeld(held_.Tick(n_.settings.values.TSRepeatVal));
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
        return DoFF();
    case HeldRewind:
        return DoRW();
    case HeldScrollUp:
        return MoveUp();
    case HeldScrollDown:
        return MoveDown();
    }
}

} // namespace vk
