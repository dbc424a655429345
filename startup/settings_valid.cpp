// Whether settings, folders and skins can be used, and what is offered when they cannot.
#include "platform/files.h"
#include "platform/paths.h"
#include "startup/astart.h"

namespace vk {

namespace {

struct DefaultKey {
    const char* section;
    const char* key;
    const char* value;
};

// The root of the drive, which exists everywhere and lies outside every media folder.
#ifdef _WIN32
constexpr char Root[] = "C:\\";
#else
constexpr char Root[] = "/";
#endif

// Written for keys that read as empty. The audio types are fewer here than in a new file.
constexpr DefaultKey Defaults[] = {
    {"main", "CurrentForm", "velkorandum"},
    {"main", "ShowClock", "true"},
    {"main", "CurrentDTSkin", "Torque.skn"},
    {"main", "CurrentNTSkin", "Torque.skn"},
    {"main", "PlayListDir", Root},
    {"main", "CDDriveLetter", "NONE"},
    {"main", "ListSpacing", "3"},
    {"main", "mutespeed", "50"},
    {"main", "AutoPlayByte", "-1"},
    {"main", "Time1", "8:00:00 AM"},
    {"main", "Time2", "9:00:00 PM"},
    {"main", "MouseIncrement", "1"},
    {"main", "TSRepeatVal", "4"},
    {"main", "VisWindowName", "Random Intelligent Visualization"},
    {"main", "TopNewCount", "30"},
    {"audio_player", "AudioExtensions", "MP3:MP2:MP1:CDA:WAV:VOC:AU:SND:AIF:AIFF"},
    {"video_player", "VideoExtensions", "MPG:AVI:MPEG:DIVX"},
};

// What Yes to the last question deletes. The user's media are never touched.
constexpr const char* GeneratedFiles[] = {"settings.ini", "kb.ini", "keys.ini", "debug.log",
                                          "tags.mdb"};

} // namespace

bool astart::SettingsAreValid() {
    bool stop = false;
    bool valid = false;
    try {
        n_.settings.LoadSettings();
        valid = FoldersAreValid() && SkinsAreThere(stop);
    } catch (const std::exception& error) {
        n_.log.WriteDebugLog(std::string("Settings could not be checked: ") + error.what());
    }
    if (stop) return false;
    if (!valid) return AskRevert();
    FillEmptyKeys();
    n_.settings.LoadSettings();
    return true;
}

bool astart::FoldersAreValid() {
    const Settings& s = n_.settings.values;
    if (!FolderExists(s.MediaDir)) {
        n_.dialogs.ShowMessage("Your media folder appears to be missing.\n"
                               "Please recreate your media folder.");
        return false;
    }
    if (!FolderExists(s.PlaylistDir)) {
        n_.dialogs.ShowMessage(
            "Your playlists folder appears to be missing.  &vbcrlf & Please recreate the folder.",
            "Warning", MessageKind::Warning);
        return false;
    }
    if (!s.PlaylistDir.starts_with(s.MediaDir)) {
        n_.dialogs.ShowMessage("You must use a playlists directory WITHIN your Media Directory.");
        return false;
    }
    return true;
}

bool astart::SkinsAreThere(bool& stop) {
    Settings& s = n_.settings.values;
    const auto there = [&](const std::string& skin) {
        return FileExists(JoinPath(n_.settings.File("skins"), skin));
    };
    if (there(s.CurrentSkin) && there(s.CurrentNTSkin)) return true;
    n_.dialogs.ShowMessage("Missing .skn file.  Default skin will be used.");
    if (!there("Torque.skn")) return true;
    for (const char* key : {"CurrentSkin", "CurrentDTSkin", "CurrentNTSkin"})
        n_.settings.Write("main", key, "Torque.skn");
    s.CurrentSkin = s.CurrentNTSkin = n_.state.CurrentSkinFile = "Torque.skn";
    n_.skin.LoadSkin();
    stop = true; // the next start uses it
    return false;
}

void astart::FillEmptyKeys() {
    for (const DefaultKey& item : Defaults) {
        const std::string value = n_.settings.Read(item.section, item.key);
        // A skin name may also be what is left of one: its ending.
        const bool skin = std::string_view(item.key).ends_with("TSkin");
        if (value.empty() || (skin && value == ".skn"))
            n_.settings.Write(item.section, item.key, item.value);
    }
}

bool astart::AskRevert() {
    keepRemoteLearning_ = true;
    const bool revert = n_.dialogs.AskYesNo(
        "Do you want Velkorandum to reset all values and revert to defaults?\n"
        "This will cause everything to be as it was the first time you launched Velkorandum. \n"
        "If you choose no, you will retain your current settings, but also any errors you have\n"
        "encountered may re-occur.",
        "Revert?");
    for (const char* name : GeneratedFiles)
        if (revert && FileExists(n_.settings.File(name))) DeleteFileAt(n_.settings.File(name));
    n_.dialogs.ShowMessage("Velkorandum will now exit.");
    return false;
}

} // namespace vk
