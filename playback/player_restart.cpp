#include "playback/player_restart.h"

#include <algorithm>

namespace vk {

namespace {

constexpr int CloseMs = 1000, StartMs = 3000, PlayMs = 1000;

} // namespace

// Its settings are on the disk before it reads them; and when this ends it answers and plays, so
// that its watchdog misses nothing.
void PlayerRestart::Run(const std::function<void()>& whileClosed) const {
    const bool played = transport.NeedsPlayer() && winamp.WinAMP_GetStatus() != "0";
    const std::int32_t track = winamp.WinAMP_gettracknum();
    const std::int32_t seconds = std::max(0, winamp.WinAMP_GetTrackPosition());
    winamp.WinAMP_SCM(WinampClose);
    const auto wait = [this](const char* what, int milliseconds, const auto& done) {
        base.pump.Until({.what = what, .done = done, .timeoutMs = milliseconds});
    };
    wait("the player's end", CloseMs, [this] { return !winamp.WinAMP_FindWindow(); });
    whileClosed();
    base.settings.Finish();
    winamp.WinAMP_Start();
    wait("the player", StartMs, [this] { return winamp.WinAMP_FindWindow(); });
    if (!played) return;
    transport.GoOn(track, seconds);
    wait("the music", PlayMs, [this] { return winamp.WinAMP_GetStatus() != "0"; });
}

} // namespace vk
