#include "settings/media_folders.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <utility>

namespace vk {

namespace {

constexpr char MediaCaption[] = "Select your Media directory";
constexpr char PlaylistCaption[] =
    "Select your Playlist directory\nIt must reside WITHIN your Media Directory";
constexpr char MediaRefused[] = "You must select a directory, or Velkorandum will not work.\n"
                                "DO NOT SELECT THE ROOT DIRECTORY OF A DRIVE AS YOUR MEDIA DIR.\n"
                                "Click ok to return, Cancel to exit program";
constexpr char PlaylistMissing[] =
    "You must select a directory, or Velkorandum will not work.  Click ok to return.";
constexpr char PlaylistOutside[] =
    "You must select a directory WITHIN your Media Directory.  Press ok to return.";

} // namespace

bool MediaFolders::Within(const std::string& path, const std::string& folder) {
    return path == folder || (path.starts_with(folder) && path.size() > folder.size() &&
                              path[folder.size()] == PathSeparator);
}

bool MediaFolders::ChooseMediaDir() {
    std::string chosen;
    for (;;) {
        chosen = WithoutTrailingSeparator(
            dialogs_.ChooseFolder(MediaCaption, settings_.values.MediaDir));
        if (!chosen.empty() && !IsRoot(chosen)) break;
        if (!dialogs_.AskOkCancel(MediaRefused)) return false;
    }
    const bool playlistsElsewhere = !Within(settings_.values.PlaylistDir, chosen);
    const std::string before = std::exchange(settings_.values.MediaDir, chosen);
    if (playlistsElsewhere && !ChoosePlaylistDir(false)) {
        settings_.values.MediaDir = before;
        return false;
    }
    for (const char* list : {"vk_audio.m3u", "vk_video.m3u"})
        if (FileExists(settings_.File(list))) DeleteFileAt(settings_.File(list));
    settings_.Write({{setting::MediaDir, chosen},
                     {setting::SyncDest, chosen},
                     {setting::AudioVolume, 0},
                     {setting::VideoVolume, 0}});
    settings_.LoadSettings();
    return true;
}

bool MediaFolders::ChoosePlaylistDir(bool mayKeep) {
    for (;;) {
        const std::string chosen = WithoutTrailingSeparator(
            dialogs_.ChooseFolder(PlaylistCaption, settings_.values.MediaDir));
        if (chosen.empty() && (mayKeep || dialogs_.Ending())) return false;
        if (chosen.empty()) {
            dialogs_.ShowMessage(PlaylistMissing);
        } else if (!Within(chosen, settings_.values.MediaDir)) {
            dialogs_.ShowMessage(PlaylistOutside);
        } else {
            settings_.Set(setting::PlaylistDir, chosen);
            return true;
        }
    }
}

} // namespace vk
