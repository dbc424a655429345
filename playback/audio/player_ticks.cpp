#include "playback/audio/player_ticks.h"

namespace vk {

namespace {

constexpr int TickMs = 100;
constexpr int RefreshTicks = 20;

} // namespace

PlayerTicks::PlayerTicks(Needs needs)
    : n_(std::move(needs)), base_(n_.parts.base),
      Timer2(base_.clock.MakeTimer([this] { Timer2_Timer(); })) {}

void PlayerTicks::Start() {
    TickCount = 0;
    bForceUpdate = true;
    refreshIn_ = RefreshTicks;
    Timer2->Start(TickMs);
}

void PlayerTicks::Timer2_Timer() {
    base_.commands.Run([this] {
        TrapAndLog(base_.report, "PlayMp3.Timer2.Timer has errored! -", [this] { Tick(); });
    });
}

void PlayerTicks::Tick() {
    if (n_.checkDaylight) n_.checkDaylight();
    n_.afterVis();
    ServeRefresh();
    if (PlayerSource* source = n_.sources.Current()) source->Tick();
    if (TickCount == 1) {
        FirstTick();
    } else if (TickCount >= 10 || bForceUpdate) {
        TickCount = 0;
        bForceUpdate = false;
        if (PlayerSource* source = n_.sources.Current()) source->EverySecond();
    }
    ++TickCount;
    n_.buttons.Tick();
    TrackRows& rows = n_.parts.rows;
    if (!rows.PageHasMoved()) return;
    rows.ReadTagsOnPage();
    n_.parts.view.ReDrawList();
}

void PlayerTicks::ServeRefresh() {
    if (refreshIn_ == 0 || --refreshIn_ > 0) return;
    n_.parts.view.ReDrawList();
    n_.parts.view.ReDrawCover();
}

void PlayerTicks::FirstTick() {
    n_.parts.cover.EverySecond();
    n_.parts.clockLine.Refresh();
    KeepInFront();
    if (PlayerSource* source = n_.sources.Current(); source && source->IsGone()) {
        base_.report.Log("The disc is no longer in the drive: the player ends");
        n_.quit();
    }
    n_.volumeLabel.HideWhenOld(n_.buttons.TurnsVolume());
}

void PlayerTicks::KeepInFront() {
    const bool ours = base_.settings.values.alwaysontop && base_.screens.CurrentForm == "playmp3";
    if (ours || pendingForeground_ > 0) base_.window.ForceForegroundWindow();
    if (pendingForeground_ > 0) --pendingForeground_;
}

} // namespace vk
