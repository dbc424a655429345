// What is handed to the players.
#include "browser/browser.h"
#include "core/text.h"
#include "library/lists/list_file.h"
#include "library/tags/media_type.h"
#include "platform/files.h"

namespace vk {

// Writes every row of that type; returns the one-based place of the selected one among them, 0 with
// a notice when there is nothing to be played.
std::int32_t Browser::WritePlayList(int mediaType, const std::string& file) {
    std::vector<std::string> entries;
    std::int32_t position = 0;
    for (int row = 0; row < list_.ItemCount(); ++row) {
        const RowDescriptor entry = SplitDescriptor(list_.GetFileNameListusercontrol(row));
        const std::string path = entry.Rest();
        if (entry.kind != "FILE" || GetMediaType(needs_.extensions, path) != mediaType ||
            !FitsListLine(path))
            continue;
        entries.push_back(path);
        if (row == list_.GetSelectedSongNum()) position = static_cast<std::int32_t>(entries.size());
    }
    if (position == 0) {
        ShowNotice(NameFitsNoList);
        return 0;
    }
    const std::string comment = mediaType == MediaAudio ? desk_.ParentName : std::string();
    if (WriteListFile(file, comment, entries)) return position;
    needs_.report.Log("could not write " + ToUtf8(file));
    ShowNotice("The play list could not be written.");
    return 0;
}

void Browser::PlayAudioFiles(const RowDescriptor&) {
    const std::int32_t position = WritePlayList(MediaAudio, AudioList());
    if (position == 0) return;
    if (DiscIsGone()) return FallBackWithoutDisc();
    const std::string& drive = builder_.Drives().DiscDrive();
    AudioState& audio = needs_.audio;
    audio.PlayMode = PlayAudio;
    audio.ListFile = AudioList();
    audio.ListTitle =
        builder_.BrowsingCD ? ToUtf8(needs_.volumes.Label(drive)) : Trim(desk_.Title());
    audio.VolumeSerial = builder_.BrowsingCD ? needs_.volumes.Serial(drive) : 0;
    audio.TrackToSelect = position;
    audio.bResuming = false;
    audio.ResumePosition = 0;
    audio.bStartPlaying = true;
    HistoryDirty = true;
    EnterPlayer();
}

// Another disc than the one on show is elsewhere.
bool Browser::DiscIsGone() {
    return builder_.BrowsingCD &&
           (!builder_.CheckDisc() || !FolderExists(needs_.state.CurrentPath));
}

void Browser::FallBackWithoutDisc() {
    FallBack();
    desk_.Say("The disc is not in the drive.");
}

void Browser::EnterPlayer() {
    if (!needs_.screens.Find("playmp3")) return ShowNotice("The player is not available.");
    Enter([this] {
        if (std::exchange(needs_.state.FromPlayer, false))
            needs_.screens.ReDisplay("playmp3");
        else
            needs_.screens.Show("playmp3");
    });
}

void Browser::PlayDisc() {
    if (!builder_.CheckDisc()) return FallBackWithoutDisc();
    const std::string& drive = builder_.Drives().DiscDrive();
    needs_.video = {.PlayDVD = true, .ListFile = {}, .VolumeSerial = needs_.volumes.Serial(drive)};
    EnterMoviePlayer();
}

void Browser::PlayVideoFiles(const RowDescriptor&) {
    const std::string file = needs_.settings.File("vk_video.m3u");
    const std::int32_t position = WritePlayList(MediaVideo, file);
    if (position == 0) return;
    if (DiscIsGone()) return FallBackWithoutDisc();
    const std::string& drive = builder_.Drives().DiscDrive();
    needs_.video = {.ListFile = file,
                    .MovieToSelect = position,
                    .VolumeSerial = builder_.BrowsingCD ? needs_.volumes.Serial(drive) : 0};
    EnterMoviePlayer();
}

void Browser::EnterMoviePlayer() {
    if (!needs_.screens.Find("playmovie")) return ShowNotice("The movie player is not available.");
    if (needs_.StopAudio && needs_.audio.PlayMode == PlayAudio) needs_.StopAudio();
    Enter([this] { needs_.screens.Show("playmovie"); });
}

// What fails over there is not a failure of the list.
void Browser::Enter(const std::function<void()>& show) {
    CloseToolFrame();
    switchingform();
    TrapAndLog(needs_.report, "An error occured in playlists.runok ", show);
}

} // namespace vk
