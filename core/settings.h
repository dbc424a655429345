// settings.ini: what is held in memory under its key names, how it is loaded, how the files are
// made.
#pragma once

#include "core/ini_file.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace vk {

/// The settings that `LoadSettings` keeps in memory. Members bear the names of their keys; the
/// section is in front where two sections share a name. Texts are as they stand in the file.
struct Settings {
    bool UseScaling = false;
    std::string EXTGPSexeName;
    std::string ExtGPSexeParams;
    bool hideGPSTitleBar = false;
    std::int16_t GPSModule = 0; ///< 0 none, 1 navigation engine, 2 external program
    std::int32_t SearchesToSave = 5;
    bool Use3Dmaps = false;
    bool CleanMenu = false;
    std::int32_t MouseFunction = 0;  ///< 0 the wheel scrolls lists, 1 it changes the volume
    std::int32_t MouseIncrement = 1; ///< volume steps a wheel tick
    bool remoteStatus = false;       ///< key status of section remote
    std::int32_t ShutDownMode = 0;
    bool DoResume = false;
    bool ShowSelBar = false;
    bool UseDelay = false;
    bool bTSModeEnabled = false;
    bool HighQBlit = false;
    bool alwaysontop = false;
    bool UseAnimation = false;
    bool hidemouse = false;
    bool MovShowBar = false;
    std::string ListSpacing; ///< a divisor, see the list control
    bool AdjMainVol = false;
    bool LoadtoMP3 = false;
    bool UseBrowseHistory = false;
    std::string AudioExtensions; ///< separated by ":", upper case, without points
    std::string VideoExtensions;
    bool ShowElapsedTime = false;
    std::int16_t comport = 0;
    std::int16_t speed = 0;
    std::int16_t delay = 0; ///< milliseconds
    bool creative = false;
    std::string MediaDir;
    std::string PlaylistDir;
    std::string appname;
    std::string currentplaylist;
    bool ShowClock = false;
    bool safevolume = false;
    std::int16_t safevol_value = 36; ///< percent
    bool AutoDimScreen = false;
    std::string CurrentSkin;   ///< the day skin's file name
    std::string CurrentNTSkin; ///< the night skin's file name
    std::string Time1;         ///< day begins, "8:00:00 AM"
    std::string Time2;         ///< night begins
    std::int16_t TopNewCount = 0;
    std::string CDDriveLetter; ///< a drive root, or "NONE"
    bool SortByFilename = false;
    double minfreq = 87.7; ///< MHz
    double maxfreq = 107.9;
    double frequencyincr = 0.2;
    std::int16_t TSRepeatVal = 0; ///< ticks of 100 ms
    bool manualdb = false;
    std::int32_t AppSize = 0;
    std::int32_t AppSizeCustomX = 0; ///< pixels
    std::int32_t AppSizeCustomY = 0;
    bool UseSplitVolume = false;
    std::int32_t dlink_audio_input = 0;
    std::int32_t xmpcr_audio_input = 0;
    bool dlink_enabled = false;
    bool xmpcr_enabled = false;
    bool showXMTime = false;
    bool XMDataLogging = false;
    bool hideXMChanNo = false;
    std::int32_t mutespeed = 0; ///< milliseconds an increment
    std::string VisWindowName;
    bool numberedList = false;
    bool hideDupeArtist = false;
    std::int16_t accSensePort = 0;
    std::int32_t accOffDelay = 0; ///< seconds

    /// Volume steps of a wheel tick, no more than span the scale.
    std::int32_t WheelSteps() const { return std::min(MouseIncrement, 50); }
};

/// settings.ini of one application directory, in memory and on the disk.
class SettingsStore {
  public:
    SettingsStore(std::string appDir, Ini& ini) : appDir_(std::move(appDir)), ini_(ini) {}

    /// Reads every loaded key in its order, with the corrections that follow single keys; a bad
    /// value never stops the load.
    void LoadSettings();

    /// settings.ini, key by key, for what is read where it is used.
    std::string Read(std::string_view section, std::string_view key);
    IniValue Read(std::string_view section, std::string_view key, IniType type);
    /// Writes at once; the result of the write call, 1 for done.
    std::int16_t Write(std::string_view section, std::string_view key, std::string_view value);
    void WriteBool(std::string_view section, std::string_view key, bool value) {
        Write(section, key, value ? "true" : "false");
    }

    const std::string& AppDir() const { return appDir_; }
    /// A file of the application directory.
    std::string File(std::string_view name) const;
    std::string SettingsFile() const { return File("settings.ini"); }
    /// A picture or other file in the folder of the skin `skinFile` ("Torque.skn").
    std::string SkinPicture(const std::string& skinFile, std::string_view name) const;

    Ini& ini() { return ini_; }

    Settings values;

  private:
    void LoadDisplay();
    void LoadLists();
    void LoadSkins();
    void LoadDevices();
    void LoadTuners();

    std::string appDir_;
    Ini& ini_;
};

} // namespace vk
