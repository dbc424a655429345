#include "playback/audio/file_source.h"

#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "playback/audio/busy_guard.h"

#include <algorithm>

namespace vk {

namespace {

constexpr int PlayPolls = 100;
constexpr int PollMs = 50;
constexpr const char* ExpandedName = "vk_audio_expanded.m3u";

/// Hides `lbLoading` at its end, however that comes.
struct LoadingSign {
    PlayerView& view;
    ~LoadingSign() { view.ShowLoading(""); }
};

} // namespace

FileSource::FileSource(Needs needs)
    : n_(std::move(needs)), position_(n_.winamp, n_.clock, n_.app.InSuspend),
      saved_({n_.audio, n_.winamp, n_.settings, n_.clock, position_}) {}

void FileSource::LoadPlaylist() {
    const BusyGuard busy(n_.app.ListBusy);
    n_.audio.CurrentTrack = n_.audio.TrackToSelect - 1;
    if (!FileExists(n_.audio.ListFile)) return UpdateScreen();
    const LoadingSign sign{n_.view};
    n_.view.ShowLoading("Loading");
    if (n_.audio.bStartPlaying) BeginList();
    ReadList();
    if (n_.audio.PlayMode != PlayAudio) return; // the player was left while the list was read
    if (n_.audio.bStartPlaying) return StartPlaying();
    Select(n_.audio.CurrentTrack);
    UpdateScreen();
}

// What is on show is no longer what is to be heard.
void FileSource::BeginList() {
    saved_.Loading(n_.audio.bResuming ? n_.audio.ResumePosition : 0);
    position_.NewTrack();
    bitRateKnown_ = true;
    n_.view.ShowArtist("");
    n_.view.ShowTitle("");
    n_.view.ShowBitRate("");
    ShowTrackTime();
}

void FileSource::Select(std::int32_t index) {
    n_.rows.Select(index);
    n_.view.ReDrawList();
}

void FileSource::ReadList() {
    TrackListNeeds needs;
    needs.query = n_.query;
    needs.log = [this](const std::string& text) { n_.log.WriteDebugLog(text); };
    needs.progress = [this](int percent) {
        n_.view.ShowLoading("Loading " + std::to_string(percent) + "%");
        n_.clock.DoEvents(0);
    };
    TrackList list = ReadTrackList(n_.audio.ListFile, n_.audio.TrackToSelect, needs);
    HandOver(list);
    const auto last = static_cast<std::int32_t>(list.tracks.size()) - 1;
    // Where no file is there the medium is missing, not the entry.
    if (list.wantedMissing && last >= 0) n_.audio.bResuming = false;
    // A resumed list comes without a title, or with its own path for one.
    if (n_.audio.ListTitle.empty() || n_.audio.ListTitle == n_.audio.ListFile)
        n_.audio.ListTitle = list.title;
    if (last >= 0) n_.audio.CurrentTrack = std::clamp(n_.audio.CurrentTrack, 0, last);
    // A resumed list without a name is called after the folder of its track.
    if (n_.audio.ListTitle.empty() && last >= 0) {
        const auto& track = list.tracks[static_cast<std::size_t>(n_.audio.CurrentTrack)];
        n_.audio.ListTitle = ReplaceAll(ToUtf8(FileNameOf(FolderOf(track.path))), "_", " ");
    }
    n_.rows.Load(std::move(list.tracks), n_.audio.CurrentTrack);
    n_.view.ShowListTitle(n_.audio.ListTitle);
}

// The player process knows no queries: it gets a copy with what they have found, so that both
// number the list alike.
void FileSource::HandOver(const TrackList& list) {
    handedOver_ = n_.audio.ListFile;
    if (!list.expanded) return;
    std::vector<std::string> paths;
    for (const Track& track : list.tracks)
        paths.push_back(track.path);
    const std::string copy = n_.settings.File(ExpandedName);
    std::string reason;
    if (WriteListFile(copy, "", paths, &reason))
        handedOver_ = copy;
    else
        n_.log.WriteDebugLog("could not write " + ToUtf8(copy) + ": " + reason);
}

// The order of the messages is what the player process relies on: it must have stopped and emptied
// its list before the new one comes in, and the entry is chosen in the new list.
void FileSource::StartPlaying() {
    Select(n_.audio.CurrentTrack);
    n_.audio.PlayingIndex = n_.audio.CurrentTrack;
    n_.audio.bStartPlaying = false;
    started_ = false;
    Unpause();
    Command(WinampStop);
    n_.winamp.WinAMP_ClearPlaylist();
    if (n_.rows.Count() == 0) return NotStarted("The files of this list are not there.");
    n_.winamp.WinAMP_OpenFile(handedOver_);
    n_.winamp.WinAMP_loadtracknum(n_.audio.CurrentTrack);
    Command(WinampPlay);
    n_.view.ShowLoading("Loading");
    if (!WaitForPlay()) return;
    started_ = true;
    const std::int32_t position = Resume();
    if (n_.audio.PlayMode != PlayAudio) return; // left in the events of the seek
    saved_.Started(position);
    UpdateScreen();
}

bool FileSource::Playing() {
    const std::string status = n_.winamp.WinAMP_GetStatus();
    return status == "1" || status == "2";
}

void FileSource::NotStarted(const std::string& notice) {
    saved_.NotStarted();
    n_.notice(notice);
}

// Events run in here: the user may have left the player before it answers. A pause (the ignition)
// may come in between as well.
bool FileSource::WaitForPlay() {
    const std::string list = n_.audio.ListFile;
    for (int count = 1;; ++count) {
        n_.clock.DoEvents(0);
        n_.clock.Sleep(PollMs);
        if (n_.audio.PlayMode != PlayAudio || n_.audio.ListFile != list) return false;
        if (Playing()) return true;
        if (count < PlayPolls) continue;
        n_.log.WriteDebugLog("Winamp did not respond to play request in playmp3 form load");
        NotStarted("This list cannot be played.");
        return false;
    }
}

// The seconds that it goes on at.
std::int32_t FileSource::Resume() {
    const bool seeks = n_.audio.bResuming && n_.audio.ResumePosition != 0;
    n_.audio.bResuming = false;
    if (seeks) {
        const std::string seconds = std::to_string(n_.audio.ResumePosition);
        n_.winamp.WinAMP_SeekToPosition(n_.audio.ResumePosition);
        n_.log.WriteDebugLog("resume to position " + seconds + " of current track");
    }
    return seeks ? n_.audio.ResumePosition : 0;
}

void FileSource::UpdateScreen() {
    const Track* track = n_.rows.Find(n_.audio.CurrentTrack);
    bitRateKnown_ = true;
    if (track && !track->IsDiscTrack()) {
        position_.NewTrack();
        bitRateKnown_ = false;
    }
    n_.view.ShowArtist(track ? track->artist : "");
    n_.view.ShowTitle(track ? track->title : "");
    n_.view.ShowBitRate("");
    if (!bitRateKnown_) ShowBitRate();
    n_.cover.ShowCoverArt(track && !track->IsDiscTrack() ? track->path : "");
}

// A track that has just been started may not have told its rate yet.
void FileSource::ShowBitRate() {
    const std::string rate = n_.winamp.WinAmp_GetBitRate();
    bitRateKnown_ = ParseInteger(rate).value_or(0) > 0;
    if (bitRateKnown_) n_.view.ShowBitRate(rate + " KB/s");
}

void FileSource::runok() {
    const std::int32_t selected = n_.rows.Selected();
    if (!started_ && !Playing()) return StartAgain(selected);
    if (!n_.rows.Find(selected)) return;
    n_.audio.CurrentTrack = selected;
    if (n_.audio.bPaused) {
        Unpause();
        Command(WinampPlay);
    }
    if (selected == n_.audio.PlayingIndex) {
        Command(WinampPlay);
        saved_.TrackChanged(); // to its beginning
        return position_.Forget();
    }
    n_.audio.TrackToSelect = selected + 1;
    n_.winamp.WinAMP_loadtracknum(selected);
    Command(WinampPlay);
    Select(selected);
    UpdateScreen();
    n_.audio.PlayingIndex = selected;
    position_.Forget();
    saved_.TrackChanged();
}

// The start of the list has failed: its files or the player process may be there by now.
void FileSource::StartAgain(std::int32_t selected) {
    if (n_.app.ListBusy) return;
    if (n_.rows.Find(selected) && selected != n_.audio.CurrentTrack) {
        n_.audio.TrackToSelect = selected + 1;
        n_.audio.bResuming = false;
    }
    n_.audio.bStartPlaying = true;
    LoadPlaylist();
}

// A process that has gone, or that is new and empty, answers 0 for the track as well: the number
// counts only where the status behind it says that something plays.
void FileSource::SkipTo(std::int32_t command) {
    Command(command);
    const std::int32_t track = n_.winamp.WinAMP_gettracknum();
    if (!Playing()) return;
    // A skip out of the pause may have ended it.
    if (n_.audio.bPaused && n_.winamp.WinAMP_GetStatus() == "1") Unpause();
    ShowPlaying(track);
}

void FileSource::ShowPlaying(std::int32_t track) {
    n_.audio.CurrentTrack = n_.audio.PlayingIndex = n_.audio.TrackToSelect = track;
    Select(track);
    UpdateScreen();
    saved_.TrackChanged();
}

void FileSource::MoveAhead() {
    SkipTo(WinampNext);
}

void FileSource::MoveBack() {
    SkipTo(WinampPrevious);
}

void FileSource::ShortPress(bool ahead) {
    ahead ? MoveAhead() : MoveBack();
}

void FileSource::DoFF() {
    position_.Stepped();
    n_.winamp.WinAMP_FF();
}

void FileSource::DoRW() {
    position_.Stepped();
    n_.winamp.WinAMP_RW();
}

void FileSource::DoPlay() {
    if (!n_.audio.bPaused) return runok();
    Unpause();
    Command(WinampPlay);
}

void FileSource::DoPause() {
    if (n_.audio.bPaused) {
        Command(WinampPlay);
        return Unpause();
    }
    Command(WinampPause);
    n_.view.SetButton(PlayerButton::Pause, "play.gif");
    n_.audio.bPaused = true;
    saved_.SaveProgress();
}

void FileSource::Unpause() {
    n_.audio.bPaused = false;
    n_.view.SetButton(PlayerButton::Pause, "pause.gif");
}

void FileSource::EverySecond() {
    if (n_.app.ListBusy) return; // a list is on its way to the player process
    if (!started_ && Playing()) StartedLate();
    position_.Refresh(n_.audio.bPaused);
    if (n_.app.ListBusy || n_.audio.PlayMode != PlayAudio) return; // left in the events of it
    ShowTrackTime();
    if (!bitRateKnown_) ShowBitRate();
    FollowTrack();
}

// After all patience; where it was to go on at is left to the next start.
void FileSource::StartedLate() {
    started_ = true;
    saved_.StartedLate();
    UpdateScreen();
}

// There is no end-of-track event: the player process goes on by itself.
void FileSource::FollowTrack() {
    const std::int32_t track = n_.winamp.WinAMP_gettracknum();
    if (track == n_.audio.CurrentTrack || !Playing()) return;
    ShowPlaying(track);
}

void FileSource::ShowTrackTime() {
    n_.view.ShowTrackTime(position_.TrackTime(n_.settings.values.ShowElapsedTime));
}

void FileSource::Save() {
    saved_.SaveAll();
    n_.log.WriteDebugLog("saved audio data");
}

void FileSource::Stop() {
    saved_.Stop();
    n_.winamp.WinAMP_ClearPlaylist();
    Command(WinampStop);
}

void FileSource::GiveWay() {
    saved_.Stop();
    position_.Forget();
    Unpause();
    if (n_.winamp.WinAMP_GetStatus() == "1") Command(WinampStop);
}

Favorite FileSource::SelectedFavorite() {
    const Track* track = n_.rows.Find(n_.rows.Selected());
    return track && !track->IsDiscTrack() ? AudioFavorite(track->path) : Favorite{};
}

std::string FileSource::MediaTypeIcon() const {
    if (!n_.audio.OnDisc()) return "mp3icon.gif";
    const Track* track = n_.rows.Find(n_.audio.CurrentTrack);
    return track && track->IsDiscTrack() ? "cdicon.gif" : "mp3icon.gif";
}

} // namespace vk
