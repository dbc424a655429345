// The state of the process that more than one screen reads: plain data, one object made by main (or
// a test) and handed down.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// States of the catalogue, as the settings and the browser test them.
enum class DBStateValue : std::int16_t {
    Disabled = -1,
    Offline = 0,
    CheckPoint = 1,
    Initialized = 2,
    Rebuilding = 3,
    OnLine = 4
};

/// Globals of the process; the names are the system's own.
struct AppState {
    std::int32_t ScreenWidth = 0; ///< pixels that the interface is laid out for
    std::int32_t ScreenHeight = 0;
    std::int32_t ScreenWidthTwips = 0; ///< 15 a pixel
    std::int32_t ScreenHeightTwips = 0;
    double fPixelsToTwipsX = 15;
    double fPixelsToTwipsY = 15;
    std::string DecimalSymbol = ".";
    bool IsWindowsNT = false;
    bool Setup = false;
    std::vector<std::string> CDDrives; ///< roots of all optical drives
    bool CDDriveFound = false;
    bool CDReady = false; ///< the configured drive held a disc when the browser last looked
    std::int32_t FirstRadioType = 0; ///< 0 FM, 1 XM first
    bool WinampWatched = false;      ///< the watchdog restarts the player only while this is set
    DBStateValue DBState = DBStateValue::Disabled;
    bool Dimmed = false;
    bool InSuspend = false;      ///< from the suspend broadcast until the machine is back
    std::string CurrentSkinFile; ///< the skin in use, "Torque.skn"
    int quitAttempts = 0;
};

} // namespace vk
