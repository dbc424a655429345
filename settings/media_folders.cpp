#include "settings/media_folders.h"

#include "platform/files.h"
#include "platform/folder_reader.h"
#include "platform/paths.h"

#include <deque>
#include <filesystem>

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

// So many entries are looked at; a folder of more is taken for one with media.
constexpr int MostEntries = 5000;

bool Readable(const std::string& folder) {
    std::error_code failed;
    const std::filesystem::directory_iterator entries(folder, failed);
    return !failed;
}

bool HoldsMedia(const std::string& root, const MediaExtensions& extensions) {
    std::deque<std::string> folders = {root};
    for (int left = MostEntries; !folders.empty(); folders.pop_front()) {
        FolderReader reader(folders.front());
        const bool open = !reader.Error();
        while (const auto entry = open ? reader.Next() : std::nullopt) {
            if (--left < 0) return true;
            const std::string name(entry->name), path = JoinPath(folders.front(), name);
            const auto folder = IsSystemName(name) ? std::nullopt : reader.IsFolder(*entry);
            if (!folder) continue;
            const int type = *folder ? MediaUnknown : GetMediaType(extensions, path);
            if (type == MediaAudio || type == MediaVideo) return true;
            if (*folder) folders.push_back(path);
        }
    }
    return false;
}

} // namespace

bool MediaFolders::Within(const std::string& path, const std::string& folder) {
    return path == folder || (path.starts_with(folder) && path.size() > folder.size() &&
                              path[folder.size()] == PathSeparator);
}

MediaFolders::Outcome MediaFolders::ChooseMediaDir(bool mayKeep) {
    const std::optional<std::string> chosen = AskForMedia(mayKeep);
    if (!chosen) return Outcome::Kept;
    if (chosen->empty()) return Outcome::GivenUp;
    std::string lists = settings_.values.PlaylistDir;
    if (!Within(lists, *chosen) || !FolderExists(lists)) lists = OfferedPlaylists(*chosen);
    if (lists.empty()) lists = AskForPlaylists(*chosen, mayKeep);
    if (lists.empty()) return mayKeep ? Outcome::Kept : Outcome::GivenUp;
    settings_.Write({{setting::MediaDir, *chosen},
                     {setting::PlaylistDir, lists},
                     {setting::SyncDest, *chosen},
                     {setting::AudioVolume, 0},
                     {setting::VideoVolume, 0}});
    settings_.Finish(); // a power cut leaves the old folder with its lists, or the new one
    for (const char* list : {"vk_audio.m3u", "vk_video.m3u"})
        if (FileExists(settings_.File(list))) DeleteFileAt(settings_.File(list));
    settings_.LoadSettings();
    return Outcome::Chosen;
}

std::optional<std::string> MediaFolders::AskForMedia(bool mayKeep) {
    for (;;) {
        std::string chosen = WithoutTrailingSeparator(
            dialogs_.ChooseFolder(MediaCaption, settings_.values.MediaDir));
        if (chosen.empty() && mayKeep) return std::nullopt;
        const bool folder = !chosen.empty() && !IsRoot(chosen);
        if (folder && Suits(chosen)) return chosen;
        if (folder ? dialogs_.Ending() : !dialogs_.AskOkCancel(MediaRefused)) return "";
    }
}

bool MediaFolders::Suits(const std::string& folder) {
    if (!Readable(folder)) {
        dialogs_.ShowMessage(folder + "\ncannot be read. Please choose another folder.");
        return false;
    }
    return HoldsMedia(folder, extensions_) ||
           dialogs_.AskYesNo("There is no music and no film in\n" + folder +
                                 "\nUse it all the same?",
                             "Media directory");
}

std::string MediaFolders::OfferedPlaylists(const std::string& media) {
    std::string folder = JoinPath(media, "Playlists");
    if (!dialogs_.AskYesNo("Your playlists need a folder of their own:\n" + folder +
                               "\nUse this one?",
                           "Playlist directory"))
        return {};
    if (FolderExists(folder) || MakeFolder(folder)) return folder;
    dialogs_.ShowMessage(folder + "\ncould not be made. Please choose another folder.");
    return {};
}

bool MediaFolders::ChoosePlaylistDir() {
    const std::string chosen = AskForPlaylists(settings_.values.MediaDir, true);
    if (!chosen.empty()) settings_.Set(setting::PlaylistDir, chosen);
    return !chosen.empty();
}

std::string MediaFolders::AskForPlaylists(const std::string& media, bool mayKeep) {
    for (;;) {
        std::string chosen =
            WithoutTrailingSeparator(dialogs_.ChooseFolder(PlaylistCaption, media));
        if (chosen.empty() && (mayKeep || dialogs_.Ending())) return {};
        if (!chosen.empty() && Within(chosen, media)) return chosen;
        dialogs_.ShowMessage(chosen.empty() ? PlaylistMissing : PlaylistOutside);
    }
}

} // namespace vk
