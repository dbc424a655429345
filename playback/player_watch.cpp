#include "playback/player_watch.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr const char* Missing = "The audio player does not run.\n"
                                "Audio files cannot be played until it is there.";
constexpr int MostDoublings = 10;
constexpr int StartsBeforeMessage = 3;

} // namespace

PlayerWatch::PlayerWatch(Needs needs)
    : n_(needs), message_(n_.base.clock.MakeTimer([this] {
          message_->Stop();
          n_.base.dialogs.ShowMessage(Missing, {}, MessageKind::Warning);
      })),
      since_(n_.base.clock.TickMs()) {}

void PlayerWatch::Look() {
    const PlayerState state = n_.window.State();
    if (std::exchange(state_, state) != state) since_ = n_.base.clock.TickMs();
    if (state == PlayerState::Answers) return SeeAnswering();
    if (state == PlayerState::Silent && Lasted() >= SilentMs) {
        goesOn_ = goesOn_ || n_.transport.NeedsPlayer();
        End("Winamp does not answer");
    } else if (state == PlayerState::Starting && Lasted() >= StartMs) {
        End("Winamp takes no messages");
    }
    if (state != PlayerState::Gone) return;
    lost_ = !goesOn_ && (lost_ || n_.transport.NeedsPlayer());
    if (n_.base.clock.TickMs() >= nextStartMs_) Replace();
    if (lost_) Leave();
}

void PlayerWatch::End(const char* why) {
    n_.base.log.WriteDebugLog(std::string(why) + " and is ended");
    n_.window.Kill();
}

// Its settings are on the disk before it reads them.
void PlayerWatch::Replace() {
    n_.base.settings.Finish();
    const bool started = n_.winamp.WinAMP_Start();
    const int pause = std::min(FirstPauseMs << std::min(starts_++, MostDoublings), LongestPauseMs);
    nextStartMs_ = n_.base.clock.TickMs() + pause;
    n_.base.log.WriteDebugLog(started ? "Winamp was restarted"
                                      : "Winamp could not be started; tried again in " +
                                            std::to_string(pause) + " ms");
    if (starts_ < StartsBeforeMessage || std::exchange(told_, true)) return;
    message_->Start(1);
}

PlayerWatch::Playing PlayerWatch::Ask() {
    if (n_.winamp.WinAMP_GetStatus() == "0") return {};
    return {n_.winamp.WinAMP_gettracknum(), std::max(0, n_.winamp.WinAMP_GetTrackPosition())};
}

// A list that was being started meanwhile has been taken up by whoever started it.
void PlayerWatch::SeeAnswering() {
    if (!n_.winamp.WinAMP_FindWindow()) return;
    if (Lasted() >= SteadyMs) {
        starts_ = 0;
        nextStartMs_ = 0;
        told_ = false;
    }
    const Playing now = Ask();
    if (n_.window.State() != PlayerState::Answers) return; // it is just beginning to hang
    if (now.track >= 0) lost_ = goesOn_ = false;
    if (lost_) return Leave();
    if (!goesOn_) {
        playing_ = now;
        return;
    }
    n_.base.commands.Run([this] {
        goesOn_ = false;
        const Playing last = std::exchange(playing_, {});
        n_.transport.GoOn(last.track, last.position);
    });
}

// What plays is another source's by now, or starts anew in a command that runs. Of two ways out the
// first one leads from a visualisation to the player.
void PlayerWatch::Leave() {
    n_.base.commands.Run([this] {
        lost_ = false;
        n_.transport.doquit();
        if (n_.transport.NeedsPlayer()) n_.transport.doquit();
    });
}

} // namespace vk
