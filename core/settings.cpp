#include "core/settings.h"

#include "platform/paths.h"

namespace vk {

namespace {

constexpr std::string_view DefaultSkin = "Torque.skn";

std::string SkinOrDefault(const std::string& name) {
    return name.empty() || name == ".skn" ? std::string(DefaultSkin) : name;
}

} // namespace

std::string SettingsStore::File(std::string_view name) const {
    return JoinPath(appDir_, std::string(name));
}

std::string SettingsStore::SkinPicture(const std::string& skinFile, std::string_view name) const {
    const std::string stem = skinFile.substr(0, skinFile.size() < 4 ? 0 : skinFile.size() - 4);
    return JoinPath(JoinPath(File("skins"), stem), std::string(name));
}

std::string SettingsStore::Read(std::string_view section, std::string_view key) {
    return ini_.ReadText(SettingsFile(), section, key);
}

IniValue SettingsStore::Read(std::string_view section, std::string_view key, IniType type) {
    return ini_.ReadINI(SettingsFile(), section, key, type);
}

std::int16_t SettingsStore::Write(std::string_view section, std::string_view key,
                                  std::string_view value) {
    return ini_.WriteINI(SettingsFile(), section, key, value);
}

void SettingsStore::LoadSettings() {
    LoadDisplay();
    LoadLists();
    LoadSkins();
    LoadTuners();
    LoadDevices();
}

void SettingsStore::LoadDisplay() {
    const auto flag = [&](std::string_view key) {
        return Read("main", key, IniType::Boolean).Bool();
    };
    const auto number = [&](std::string_view key) {
        return Read("main", key, IniType::Long).Long();
    };
    Settings& s = values;
    s.UseScaling = flag("UseScaling");
    s.EXTGPSexeName = Read("GPS", "EXTGPSexeName");
    s.hideGPSTitleBar = Read("GPS", "hideGPSTitleBar", IniType::Boolean).Bool();
    s.GPSModule = Read("GPS", "GPSModule", IniType::Long).Integer();
    s.SearchesToSave = number("SearchesToSave");
    if (s.SearchesToSave <= 0) s.SearchesToSave = 5;
    s.Use3Dmaps = Read("GPS", "Use3Dmaps", IniType::Boolean).Bool();
    s.CleanMenu = flag("CleanMenu");
    s.MouseFunction = number("MouseFunction");
    s.MouseIncrement = number("MouseIncrement");
    s.remoteStatus = Read("remote", "status", IniType::Boolean).Bool();
    s.ShutDownMode = Read("PowerOptions", "ShutDownMode", IniType::Long).Long();
    s.DoResume = flag("DoResume");
    s.ShowSelBar = flag("ShowSelBar");
    s.UseDelay = flag("UseDelay");
    s.bTSModeEnabled = flag("bTSModeEnabled");
    s.HighQBlit = flag("HighQBlit");
    s.alwaysontop = flag("alwaysontop");
    s.UseAnimation = flag("UseAnimation");
    s.hidemouse = flag("hidemouse");
    s.MovShowBar = flag("MovShowBar");
}

void SettingsStore::LoadLists() {
    Settings& s = values;
    s.ListSpacing = Read("main", "ListSpacing", IniType::Integer).Text();
    s.AdjMainVol = Read("main", "AdjMainVol", IniType::Boolean).Bool();
    s.LoadtoMP3 = Read("main", "LoadtoMP3", IniType::Boolean).Bool();
    s.UseBrowseHistory = Read("main", "UseBrowseHistory", IniType::Boolean).Bool();
    s.AudioExtensions = Read("audio_player", "AudioExtensions");
    s.ShowElapsedTime = Read("audio_player", "ShowElapsedTime", IniType::Boolean).Bool();
    s.VideoExtensions = Read("video_player", "VideoExtensions");
    s.comport = Read("remote", "comport", IniType::Integer).Integer();
    s.speed = Read("remote", "speed", IniType::Integer).Integer();
    s.delay = Read("remote", "delay", IniType::Integer).Integer();
    s.creative = Read("remote", "creative", IniType::Boolean).Bool();
    s.MediaDir = Read("main", "MediaDir");
    s.PlaylistDir = Read("main", "PlaylistDir");
    s.appname = Read("app1", "appname");
    s.currentplaylist = Read("audio_player", "currentplaylist");
}

void SettingsStore::LoadSkins() {
    Settings& s = values;
    s.ShowClock = Read("main", "ShowClock", IniType::Boolean).Bool();
    s.safevolume = Read("main", "safevolume", IniType::Boolean).Bool();
    s.safevol_value = Read("main", "safevol_value", IniType::Integer).Integer();
    if (s.safevol_value == 0) s.safevol_value = 36;
    s.AutoDimScreen = Read("main", "AutoDimScreen", IniType::Boolean).Bool();
    // The day skin's key is CurrentSkin; CurrentDTSkin is written and checked but never read for
    // it.
    s.CurrentSkin = SkinOrDefault(Read("main", "CurrentSkin"));
    s.CurrentNTSkin = SkinOrDefault(Read("main", "CurrentNTSkin"));
    s.Time1 = Read("main", "Time1");
    s.Time2 = Read("main", "Time2");
    s.TopNewCount = Read("main", "TopNewCount", IniType::Integer).Integer();
    s.CDDriveLetter = Read("main", "CDDriveLetter");
    s.SortByFilename = Read("main", "SortByFilename", IniType::Boolean).Bool();
}

void SettingsStore::LoadTuners() {
    Settings& s = values;
    const auto fm = [&](std::string_view key, IniType type) {
        return Read("dlink_tuner", key, type);
    };
    const auto xm = [&](std::string_view key, IniType type) {
        return Read("xmpcr_tuner", key, type);
    };
    s.minfreq = fm("minfreq", IniType::Double).Double();
    if (s.minfreq < 87.7) s.minfreq = 87.7;
    s.frequencyincr = fm("frequencyincr", IniType::Double).Double();
    if (s.frequencyincr < 0.1 || s.frequencyincr > 0.2) s.frequencyincr = 0.2;
    s.maxfreq = fm("maxfreq", IniType::Double).Double();
    if (s.maxfreq == 0 || s.maxfreq > 107.9) s.maxfreq = 107.9;
    s.TSRepeatVal = Read("main", "TSRepeatVal", IniType::Long).Integer();
    s.manualdb = Read("main", "manualdb", IniType::Boolean).Bool();
    s.AppSize = Read("main", "AppSize", IniType::Long).Long();
    s.AppSizeCustomX = Read("main", "AppSizeCustomX", IniType::Long).Long();
    s.AppSizeCustomY = Read("main", "AppSizeCustomY", IniType::Long).Long();
    s.UseSplitVolume = Read("main", "UseSplitVolume", IniType::Boolean).Bool();
    s.dlink_audio_input = fm("audio_input", IniType::Long).Long();
    s.xmpcr_audio_input = xm("audio_input", IniType::Long).Long();
    s.dlink_enabled = fm("enabled", IniType::Boolean).Bool();
    s.xmpcr_enabled = xm("enabled", IniType::Boolean).Bool();
    s.showXMTime = xm("showXMTime", IniType::Boolean).Bool();
    s.XMDataLogging = xm("XMDataLogging", IniType::Boolean).Bool();
    s.hideXMChanNo = xm("hideXMChanNo", IniType::Boolean).Bool();
}

void SettingsStore::LoadDevices() {
    Settings& s = values;
    s.mutespeed = Read("main", "mutespeed", IniType::Long).Long();
    s.VisWindowName = Read("main", "VisWindowName");
    s.numberedList = Read("audio_player", "numberedList", IniType::Boolean).Bool();
    s.hideDupeArtist = Read("audio_player", "hideDupeArtist", IniType::Boolean).Bool();
    s.accSensePort = Read("AccControl", "accSensePort", IniType::Integer).Integer();
    s.accOffDelay = Read("AccControl", "accOffDelay", IniType::Long).Long();
    s.ExtGPSexeParams = Read("GPS", "ExtGPSexeParams");
}

} // namespace vk
