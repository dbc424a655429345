#include "browser/hand_over.h"

#include "core/text.h"
#include "library/lists/channel_list.h"
#include "library/lists/list_file.h"
#include "library/tags/media_type.h"
#include "platform/files.h"
#include "playback/resume.h"
#include "playback/tuner_choice.h"

#include <algorithm>
#include <utility>

namespace vk {

// Writes every row of that type; returns the one-based place of the selected one among them, 0 with
// a notice when there is nothing to be played.
std::int32_t HandOver::WritePlayList(int mediaType, const std::string& file) {
    std::vector<std::string> entries;
    std::int32_t position = 0;
    for (int row = 0; row < desk_.list.ItemCount(); ++row) {
        const auto entry = Descriptor::Parse(desk_.list.GetFileNameListusercontrol(row));
        const std::string& path = entry.body;
        if (entry.kind != RowKind::File ||
            GetMediaType(desk_.needs.library.extensions, path) != mediaType || !FitsListLine(path))
            continue;
        entries.push_back(path);
        if (row == desk_.list.GetSelectedSongNum())
            position = static_cast<std::int32_t>(entries.size());
    }
    if (position == 0) {
        desk_.Say(NameFitsNoList);
        return 0;
    }
    const std::string comment = mediaType == MediaAudio ? desk_.ParentName : std::string();
    if (WriteListFile(file, comment, entries)) return position;
    desk_.needs.base.report.Log("could not write " + ToUtf8(file));
    desk_.Say("The play list could not be written.");
    return 0;
}

void HandOver::PlayAudioFiles() {
    const std::int32_t position =
        WritePlayList(MediaAudio, desk_.needs.base.settings.File(AudioListName));
    if (position == 0) return;
    if (DiscIsGone()) return FallBackWithoutDisc();
    const std::string& drive = lists_.place.Drives().DiscDrive();
    AudioState& audio = desk_.needs.players.audio;
    audio.PlayMode = PlayAudio;
    audio.ListFile = desk_.needs.base.settings.File(AudioListName);
    audio.ListTitle = lists_.place.BrowsingCD ? ToUtf8(desk_.needs.base.volumes.Label(drive))
                                              : Trim(desk_.Title());
    audio.VolumeSerial = lists_.place.BrowsingCD ? desk_.needs.base.volumes.Serial(drive) : 0;
    audio.TrackToSelect = position;
    audio.bResuming = false;
    audio.ResumePosition = 0;
    audio.bStartPlaying = true;
    lists_.trail.Played();
    EnterPlayer();
}

// Another disc than the one on show is elsewhere.
bool HandOver::DiscIsGone() {
    return lists_.place.BrowsingCD &&
           (!lists_.place.CheckDisc() || !lists_.place.IsThere(desk_.needs.state.CurrentPath));
}

void HandOver::FallBackWithoutDisc() {
    building_.FallBack();
    desk_.Say("The disc is not in the drive.");
}

void HandOver::EnterPlayer() {
    if (!desk_.needs.base.screens.Find("playmp3")) return desk_.Say("The player is not available.");
    Enter([this] {
        if (std::exchange(desk_.needs.state.FromPlayer, false))
            desk_.needs.base.screens.ReDisplay("playmp3");
        else
            desk_.needs.base.screens.Show("playmp3");
    });
}

void HandOver::PlayDisc() {
    if (!lists_.place.CheckDisc()) return FallBackWithoutDisc();
    const std::string& drive = lists_.place.Drives().DiscDrive();
    desk_.needs.players.video = {.PlayDVD = true,
                                 .ListFile = {},
                                 .VolumeSerial = desk_.needs.base.volumes.Serial(drive),
                                 .FromBrowser = true};
    EnterMoviePlayer();
}

void HandOver::PlayVideoFiles() {
    const std::string file = desk_.needs.base.settings.File(VideoListName);
    const std::int32_t position = WritePlayList(MediaVideo, file);
    if (position == 0) return;
    if (DiscIsGone()) return FallBackWithoutDisc();
    const std::string& drive = lists_.place.Drives().DiscDrive();
    desk_.needs.players.video = {
        .ListFile = file,
        .MovieToSelect = position,
        .VolumeSerial = lists_.place.BrowsingCD ? desk_.needs.base.volumes.Serial(drive) : 0,
        .FromBrowser = true};
    EnterMoviePlayer();
}

void HandOver::EnterMoviePlayer() {
    if (!desk_.needs.base.screens.Find("playmovie"))
        return desk_.Say("The movie player is not available.");
    // Whatever sounds is saved and silenced: a tuner no less than a song.
    if (desk_.needs.players.audio.PlayMode != PlayNone) desk_.needs.players.transport.doquit();
    desk_.needs.state.FromPlayer = desk_.needs.state.FromMovie = false;
    lists_.trail.Played();
    Enter([this] { desk_.needs.base.screens.Show("playmovie"); });
}

// What fails over there is not a failure of the list.
void HandOver::Enter(const std::function<void()>& show) {
    leave_();
    TrapAndLog(desk_.needs.base.report, "An error occured in playlists.runok ", show);
}

// Writes the channels on show for the player's next and previous; `position` is the one-based place
// of the selected one. False when they could not be written.
bool HandOver::WriteChannels(std::int32_t& position) {
    std::string numbers;
    position = 1;
    for (int row = 0; row < desk_.list.ItemCount(); ++row) {
        const auto entry = Descriptor::Parse(desk_.list.GetFileNameListusercontrol(row));
        if (entry.IsChannel()) numbers += entry.argument + "\n";
        if (row == desk_.list.GetSelectedSongNum())
            position = static_cast<std::int32_t>(std::ranges::count(numbers, '\n'));
    }
    const std::string file = desk_.needs.base.settings.File(CurrentChannelsName);
    if (WriteChannelList(file, ChannelNumbers(numbers))) return true;
    desk_.needs.base.report.Log("could not write " + ToUtf8(file));
    desk_.Say("The channel list could not be written.");
    return false;
}

// The player reads the settings when it switches over: channel, list ("" for all channels) and the
// list's name.
void HandOver::SaveChannel(std::int64_t channel) {
    const bool all = desk_.Title() == AllChannelsTitle;
    std::string& list = desk_.needs.players.audio.ListFile;
    list = desk_.needs.base.settings.File(CurrentChannelsName);
    desk_.needs.base.settings.Write(
        {{setting::CurrentChannel, static_cast<std::int32_t>(channel)},
         {setting::PresetList, all ? "" : list},
         {setting::ListTitle, all ? XMSourceName : Trim(desk_.Title())}});
}

void HandOver::TuneChannel(const Descriptor& row) {
    const auto channel = ParseInteger(row.argument);
    AudioState& audio = desk_.needs.players.audio;
    std::int32_t position = 0;
    if (!channel || !IsChannelNumber(*channel) || !WriteChannels(position)) return;
    SaveChannel(*channel);
    audio.PlayMode = PlayXM;
    audio.ListTitle = XMSourceName;
    audio.CurrentChannel = static_cast<std::int16_t>(*channel);
    audio.TrackToSelect = position;
    audio.VolumeSerial = -1;
    audio.bResuming = false;
    audio.bStartPlaying = true;
    lists_.trail.Played();
    EnterPlayer();
}

void HandOver::TunePreset(const std::string& frequency) {
    SettingsStore& settings = desk_.needs.base.settings;
    settings.Set(setting::currentfreq, ParseDecimal(frequency).value_or(0));
    ChooseTuner(PlayFM, settings, desk_.needs.players.audio);
    EnterPlayer();
}

void HandOver::Resume() {
    AudioState& audio = desk_.needs.players.audio;
    if (!FileExists(desk_.needs.base.settings.File(AudioListName)))
        return desk_.Say(NothingToResume);
    if (audio.PlayMode == PlayNone) return ResumeSaved();
    audio.bStartPlaying = false; // it plays already: only shown
    desk_.needs.state.FromPlayer = true;
    EnterPlayer();
}

void HandOver::ResumeSaved() {
    Base& base = desk_.needs.base;
    AudioState& audio = desk_.needs.players.audio;
    if (PrepareResume(base.settings, base.volumes, audio) != ResumeResult::Ready)
        return desk_.Say("ROM Mismatch detected. Insert correct CD.");
    audio.bResuming = true; // the button means it, whatever the start of the system does
    EnterPlayer();
}

} // namespace vk
