// The remote control of the audio player process: finds its window, starts it, hands it lists and
// speaks to it in window messages (WM_COMMAND 273 for commands, WM_USER 1024 for queries and
// settings, whose lParam selects the function).
#pragma once

#include "core/error_report.h"
#include "core/pump.h"
#include "platform/player_window.h"

#include <cstdint>
#include <string>

namespace vk {

/// The window class of the player's main window; its title does not count.
inline constexpr const char* WinampWindowClass = "Winamp v1.x";

/// Commands of `cWinamp::WinAMP_SCM`.
enum WinampCommand : std::int32_t {
    WinampClose = 40001,
    WinampPreferences = 40012,
    WinampToggleShuffle = 40023,
    WinampPrevious = 40044,
    WinampPlay = 40045,
    WinampPause = 40046, ///< a toggle
    WinampStop = 40047,
    WinampNext = 40048,
    WinampRewind = 40144,  ///< 5 seconds
    WinampForward = 40148, ///< 5 seconds
    WinampRunVis = 40192
};

/// What `cWinamp` needs of its surroundings; all of it outlives the object.
struct WinampNeeds {
    PlayerWindow& window;
    Pump& pump;
    ErrorReport& report;
    std::string folder; ///< application directory: home of the program and its settings
};

/// One instance exists. There are no notifications: progress is learned by polling. A message to a
/// window that is gone answers 0, which reads as stopped, position 0 and length 0. Where an
/// operation traps errors it reports "An error occured in modWinamp_Control." and its name, and
/// returns 0, false or an empty text.
class cWinamp {
  public:
    explicit cWinamp(WinampNeeds needs) : needs_(std::move(needs)) {}
    /// Empties the player's list, stops and closes it.
    ~cWinamp();
    cWinamp(const cWinamp&) = delete;
    cWinamp& operator=(const cWinamp&) = delete;

    /// Forward and back by 5 seconds.
    void WinAMP_FF();
    void WinAMP_RW();
    /// Bit rate of the current track in kilobits per second, as decimal text.
    std::string WinAmp_GetBitRate();
    /// Band 0 to 9, value 0 (+20 dB) to 63 (-20 dB); anything else does nothing.
    void WinAMP_SetEQValue(std::int32_t band, std::int32_t value);
    void WinAMP_SetPreAmpValue(std::int32_t value);
    void WinAMP_ClearPlaylist();
    /// Looks for the window anew and remembers it. Errors pass to the caller.
    bool WinAMP_FindWindow();
    /// The window found anew, 0 for none.
    WindowHandle WinAMP_GetHwnd();
    /// "1" playing, "2" paused, "0" anything else.
    std::string WinAMP_GetStatus();
    /// Whole seconds into the track; -1 when nothing is loaded.
    std::int32_t WinAMP_GetTrackPosition();
    /// 0 to 63; -1 for a band that does not exist.
    std::int32_t WinAMP_GetEQValue(std::int32_t band);
    std::int32_t WinAMP_GetPreAmpValue();
    /// Does nothing outside of 0 and the track's length in seconds.
    void WinAMP_SeekToPosition(std::int32_t seconds);
    /// 0 to 255; anything else does nothing.
    void WinAMP_SetVolume(std::int32_t volume);
    /// -127 (left) to 127 (right); anything else does nothing.
    void WinAMP_SetBalance(std::int32_t balance);
    /// Seconds, asked up to 101 times until it is known, with the application's events run in
    /// between: timers and input can arrive inside this call. 0 or -1 when it stays unknown.
    std::int32_t WinAMP_GetTrackLength();
    /// What plays, as the player names it; "" when it tells nothing.
    std::string WinAMP_GetTitle();
    /// Such as "2.01"; "UNKNOWN" when the number has fewer than four hexadecimal digits.
    std::string WinAMP_GetVersion();
    /// Sends one command. Errors pass to the caller.
    void WinAMP_SCM(std::int32_t id);
    /// Makes the zero-based list entry the current one.
    void WinAMP_loadtracknum(std::int32_t index);
    std::int32_t WinAMP_gettracknum();
    /// Starts the process hidden unless it runs. It takes messages a moment later, when its window
    /// is found. Errors are swallowed and give false.
    bool WinAMP_Start();
    /// Hands a file (a whole list) over through the program's command line, without waiting for it
    /// to arrive. False when the file is missing or the program could not be run.
    bool WinAMP_OpenFile(const std::string& path);
    /// As `WinAMP_SetVolume`, unchecked.
    void WinAMP_setvol(std::int32_t volume);

  private:
    std::int32_t Query(std::int32_t function, std::int32_t argument = 0);
    std::string Program() const;

    WinampNeeds needs_;
    WindowHandle hWnd = 0; ///< as last found; never checked before a message
};

} // namespace vk
