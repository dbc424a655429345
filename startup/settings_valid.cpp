// Whether settings, folders and skins can be used, and what is offered when they cannot.
#include "core/reset.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "startup/astart.h"

namespace vk {

bool astart::SettingsAreValid() {
    bool stop = false;
    bool valid = false;
    try {
        base_.settings.LoadSettings();
        valid = FoldersAreValid() && SkinsAreThere(stop);
    } catch (const std::exception& error) {
        base_.log.WriteDebugLog(std::string("Settings could not be checked: ") + error.what());
    }
    if (stop) return false;
    if (!valid) return AskRevert();
    base_.settings.FillEmptySettings();
    base_.settings.LoadSettings();
    return true;
}

bool astart::FoldersAreValid() {
    const Settings& s = base_.settings.values;
    if (!FolderExists(s.MediaDir)) {
        base_.dialogs.ShowMessage("Your media folder appears to be missing.\n"
                                  "Please recreate your media folder.");
        return false;
    }
    if (!FolderExists(s.PlaylistDir)) {
        base_.dialogs.ShowMessage(
            "Your playlists folder appears to be missing.  &vbcrlf & Please recreate the folder.",
            "Warning", MessageKind::Warning);
        return false;
    }
    if (!s.PlaylistDir.starts_with(s.MediaDir)) {
        base_.dialogs.ShowMessage(
            "You must use a playlists directory WITHIN your Media Directory.");
        return false;
    }
    return true;
}

bool astart::SkinsAreThere(bool& stop) {
    Settings& s = base_.settings.values;
    const auto there = [&](const std::string& skin) { return n_.skin.IsThere(skin); };
    if (there(s.CurrentSkin) && there(s.CurrentNTSkin)) return true;
    base_.dialogs.ShowMessage("Missing .skn file.  Default skin will be used.");
    if (!there(DefaultSkin)) return true;
    base_.settings.Write({{setting::CurrentSkin, DefaultSkin},
                          {setting::CurrentDTSkin, DefaultSkin},
                          {setting::CurrentNTSkin, DefaultSkin}});
    base_.state.CurrentSkinFile = DefaultSkin;
    n_.skin.LoadSkin();
    stop = true; // the next start uses it
    return false;
}

bool astart::AskRevert() {
    keepRemoteLearning_ = true;
    if (base_.dialogs.AskNoYes(RevertQuestion, "Revert?")) DeleteGeneratedFiles(base_.settings);
    base_.dialogs.ShowMessage("Velkorandum will now exit.");
    return false;
}

} // namespace vk
