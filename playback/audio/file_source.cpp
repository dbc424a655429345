#include "playback/audio/file_source.h"

#include "core/optical_drive.h"
#include "core/text.h"
#include "library/lists/list_file.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "playback/resume.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr int PlayMs = 5000;
constexpr int PollMs = 50;
constexpr int MostStarts = 3;
constexpr const char* ExpandedName = "vk_audio_expanded.m3u";

/// Hides `lbLoading` at its end, however that comes.
struct LoadingSign {
    PlayerView& view;
    ~LoadingSign() { view.ShowLoading(""); }
};

} // namespace

FileSource::FileSource(const SourceContext& context, cWinamp& winamp, CatalogueQuery query)
    : c_(context), audio_(c_.audio), view_(c_.view), winamp_(winamp), query_(std::move(query)),
      position_(winamp, c_.base.clock, c_.base.state.InSuspend),
      saved_({audio_, winamp, c_.base.settings, c_.base.clock, position_}) {}

// Coming and going -------------------------------------------------------------------------------

bool FileSource::CanPlay() {
    if (HasListToResume(c_.base.settings)) return true;
    c_.clockLine.ShowProblem(NothingToResume);
    return false;
}

bool FileSource::SwitchTo() {
    const ResumeResult result = PrepareResume(c_.base.settings, c_.base.volumes, audio_);
    if (result == ResumeResult::NoList) c_.clockLine.ShowProblem(NothingToResume);
    if (result != ResumeResult::Ready) return result == ResumeResult::NoList;
    audio_.bResuming = true; // the button means it, whatever the start of the system does
    audio_.ListTitle.clear();
    c_.shuffle.Show();
    LoadPlaylist();
    return true;
}

// Shuffle is shown before anything can save it.
void FileSource::Enter() {
    if (FileLength(audio_.ListFile) > 0) c_.shuffle.Show();
    const bool shown = audio_.ListFile == shownList_ && c_.rows.Count() > 0;
    if (audio_.bStartPlaying || !shown) LoadPlaylist();
}

void FileSource::GiveWay() {
    saved_.Stop();
    position_.Forget();
    Unpause();
    if (winamp_.WinAMP_GetStatus() == "1") Command(WinampStop);
}

void FileSource::Stop() {
    saved_.Stop();
    winamp_.WinAMP_ClearPlaylist();
    Command(WinampStop);
}

void FileSource::Save() {
    saved_.SaveAll();
    c_.base.log.WriteDebugLog("saved audio data");
}

// The player process would play on, unheard, until the machine sleeps and from when it wakes.
void FileSource::Suspend() {
    Save();
    const bool plays = winamp_.WinAMP_GetStatus() == "1";
    if (plays) Command(WinampPause);
    suspended_ = suspended_ || plays;
}

void FileSource::Resume() {
    position_.Forget();
    const bool plays = std::exchange(suspended_, false) && !audio_.bPaused;
    if (plays && winamp_.WinAMP_GetStatus() == "2") Command(WinampPlay);
}

bool FileSource::IsGone() {
    if (!audio_.OnDisc()) return false;
    const Volumes& volumes = c_.base.volumes;
    const std::string drive = OpticalRoot(volumes, c_.base.settings.values.CDDriveLetter);
    return !drive.empty() && !volumes.IsReady(drive);
}

// The list ---------------------------------------------------------------------------------------

void FileSource::LoadPlaylist() {
    shownList_ = audio_.ListFile;
    audio_.CurrentTrack = audio_.TrackToSelect - 1;
    if (!FileExists(audio_.ListFile)) return UpdateScreen();
    const LoadingSign sign{view_};
    view_.ShowLoading("Loading");
    if (audio_.bStartPlaying) BeginList();
    if (!ReadList()) return shownList_.clear();
    if (audio_.bStartPlaying) return StartPlaying();
    Select(audio_.CurrentTrack);
    UpdateScreen();
}

// What is on show is no longer what is to be heard.
void FileSource::BeginList() {
    saved_.Loading(audio_.bResuming ? audio_.ResumePosition : 0);
    position_.NewTrack();
    bitRateKnown_ = true;
    view_.ShowArtist("");
    view_.ShowTitle("");
    view_.ShowBitRate("");
    ShowTrackTime();
}

void FileSource::Select(std::int32_t index) {
    c_.rows.Select(index);
    view_.ReDrawList();
}

// False when the user leaves meanwhile; the rows are then those of before.
bool FileSource::ReadList() {
    Work work(c_.base.pump, "a list that is read");
    TrackListNeeds needs;
    needs.query = query_;
    needs.log = [this](const std::string& text) { c_.base.log.WriteDebugLog(text); };
    needs.progress = [&](int percent) {
        view_.ShowLoading("Loading " + std::to_string(percent) + "%");
        return work.Pulse();
    };
    TrackList list = ReadTrackList(audio_.ListFile, audio_.TrackToSelect, needs);
    if (list.ended) return false;
    HandOver(list);
    TakeList(list);
    c_.rows.Load(std::move(list.tracks), audio_.CurrentTrack);
    return !work.Ended();
}

void FileSource::TakeList(const TrackList& list) {
    const auto last = static_cast<std::int32_t>(list.tracks.size()) - 1;
    // Where no file is there the medium is missing, not the entry.
    if (list.wantedMissing && last >= 0) audio_.bResuming = false;
    // A resumed list comes without a title, or with its own path for one.
    if (audio_.ListTitle.empty() || audio_.ListTitle == audio_.ListFile)
        audio_.ListTitle = list.title;
    if (last >= 0) audio_.CurrentTrack = std::clamp(audio_.CurrentTrack, 0, last);
    // A resumed list without a name is called after the folder of its track.
    if (audio_.ListTitle.empty() && last >= 0) {
        const auto& track = list.tracks[static_cast<std::size_t>(audio_.CurrentTrack)];
        audio_.ListTitle = ReplaceAll(ToUtf8(FileNameOf(FolderOf(track.path))), "_", " ");
    }
    view_.ShowListTitle(audio_.ListTitle);
}

// The player process knows no queries: it gets a copy with what they have found, so that both
// number the list alike.
void FileSource::HandOver(const TrackList& list) {
    handedOver_ = audio_.ListFile;
    if (!list.expanded) return;
    std::vector<std::string> paths;
    for (const Track& track : list.tracks)
        paths.push_back(track.path);
    const std::string copy = c_.base.settings.File(ExpandedName);
    std::string reason;
    if (WriteListFile(copy, "", paths, &reason))
        handedOver_ = copy;
    else
        c_.base.log.WriteDebugLog("could not write " + ToUtf8(copy) + ": " + reason);
}

// A process that ends meanwhile is replaced by the watchdog: then all of it is done once more.
void FileSource::StartPlaying() {
    Select(audio_.CurrentTrack);
    audio_.PlayingIndex = audio_.CurrentTrack;
    audio_.bStartPlaying = false;
    started_ = false;
    Unpause();
    view_.ShowLoading("Loading");
    Start start = Start::PlayerLost;
    for (int tries = 0; tries < MostStarts && start == Start::PlayerLost; ++tries)
        start = TryToPlay();
    if (start != Start::Plays) return start == Start::Left ? void() : Refuse();
    started_ = true;
    saved_.Started(SeekToResume());
    UpdateScreen();
}

// The order of the messages is what the player process relies on: it must have stopped and emptied
// its list before the new one comes in, and the entry is chosen in the new list.
FileSource::Start FileSource::TryToPlay() {
    const Start found = FindPlayer();
    if (found != Start::Plays) return found;
    Command(WinampStop);
    winamp_.WinAMP_ClearPlaylist();
    if (c_.rows.Count() == 0) return Start::Refused;
    winamp_.WinAMP_OpenFile(handedOver_);
    winamp_.WinAMP_loadtracknum(audio_.CurrentTrack);
    Command(WinampPlay);
    return WaitForPlay();
}

// One that has just been started takes a moment. One that could not be for long is tried again now.
FileSource::Start FileSource::FindPlayer() {
    if (winamp_.WinAMP_GetHwnd() != 0) return Start::Plays;
    if (!winamp_.WinAMP_Start()) return Start::Refused;
    const auto found = [&] { return winamp_.WinAMP_GetHwnd() != 0; };
    const Waited waited = c_.base.pump.Until({"the player process", found, PlayMs});
    if (waited == Waited::Done) return Start::Plays;
    return waited == Waited::TimedOut ? Start::Refused : Start::Left;
}

bool FileSource::Playing() {
    const std::string status = winamp_.WinAMP_GetStatus();
    return status == "1" || status == "2";
}

void FileSource::NotStarted(const std::string& notice) {
    saved_.NotStarted();
    c_.clockLine.ShowProblem(notice);
}

void FileSource::Refuse() {
    const bool empty = c_.rows.Count() == 0;
    NotStarted(empty ? "The files of this list are not there." : "This list cannot be played.");
}

// It is asked when it has had a moment to begin. A pause (the ignition) may come in between.
FileSource::Start FileSource::WaitForPlay() {
    bool asked = false, plays = false;
    const WindowHandle window = winamp_.WinAMP_GetHwnd();
    const auto decided = [&] {
        plays = std::exchange(asked, true) && Playing();
        return plays || winamp_.WinAMP_GetHwnd() != window;
    };
    const Waited waited = c_.base.pump.Until({"the player's start", decided, PlayMs, PollMs});
    if (plays) return Start::Plays;
    if (waited != Waited::TimedOut)
        return waited == Waited::Ended ? Start::Left : Start::PlayerLost;
    c_.base.log.WriteDebugLog("Winamp did not respond to play request in playmp3 form load");
    return Start::Refused;
}

// The seconds that it goes on at.
std::int32_t FileSource::SeekToResume() {
    const bool seeks = audio_.bResuming && audio_.ResumePosition != 0;
    audio_.bResuming = false;
    if (seeks) {
        const std::string seconds = std::to_string(audio_.ResumePosition);
        winamp_.WinAMP_SeekToPosition(audio_.ResumePosition);
        c_.base.log.WriteDebugLog("resume to position " + seconds + " of current track");
    }
    return seeks ? audio_.ResumePosition : 0;
}

void FileSource::UpdateScreen() {
    const Track* track = c_.rows.Find(audio_.CurrentTrack);
    bitRateKnown_ = true;
    if (track && !track->IsDiscTrack()) {
        position_.NewTrack();
        bitRateKnown_ = false;
    }
    view_.ShowArtist(track ? track->artist : "");
    view_.ShowTitle(track ? track->title : "");
    view_.ShowBitRate("");
    if (!bitRateKnown_) ShowBitRate();
    const bool hasCover = track && !track->IsDiscTrack() && !track->IsStream() && !audio_.OnDisc();
    hasCover ? c_.cover.ShowCoverArt(track->path) : c_.cover.Hide();
}

// A track that has just been started may not have told its rate yet.
void FileSource::ShowBitRate() {
    const std::string rate = winamp_.WinAmp_GetBitRate();
    bitRateKnown_ = ParseInteger(rate).value_or(0) > 0;
    if (bitRateKnown_) view_.ShowBitRate(rate + " KB/s");
}

void FileSource::runok() {
    const std::int32_t selected = c_.rows.Selected();
    if (!started_ && !Playing()) return StartAgain(selected);
    if (!c_.rows.Find(selected)) return;
    audio_.CurrentTrack = selected;
    if (audio_.bPaused) {
        Unpause();
        Command(WinampPlay);
    }
    if (selected == audio_.PlayingIndex) {
        Command(WinampPlay);
        saved_.TrackChanged(); // to its beginning
        return position_.Forget();
    }
    audio_.TrackToSelect = selected + 1;
    winamp_.WinAMP_loadtracknum(selected);
    Command(WinampPlay);
    Select(selected);
    UpdateScreen();
    audio_.PlayingIndex = selected;
    position_.Forget();
    saved_.TrackChanged();
}

// The start of the list has failed: its files or the player process may be there by now.
void FileSource::StartAgain(std::int32_t selected) {
    if (c_.rows.Find(selected) && selected != audio_.CurrentTrack) {
        audio_.TrackToSelect = selected + 1;
        audio_.bResuming = false;
    }
    audio_.bStartPlaying = true;
    LoadPlaylist();
}

// A process that has gone, or that is new and empty, answers 0 for the track as well: the number
// counts only where the status behind it says that something plays.
void FileSource::SkipTo(std::int32_t command) {
    Command(command);
    const std::int32_t track = winamp_.WinAMP_gettracknum();
    if (!Playing()) return;
    // A skip out of the pause may have ended it.
    if (audio_.bPaused && winamp_.WinAMP_GetStatus() == "1") Unpause();
    ShowPlaying(track);
}

void FileSource::ShowPlaying(std::int32_t track) {
    audio_.CurrentTrack = audio_.PlayingIndex = audio_.TrackToSelect = track;
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

void FileSource::DoFF() {
    position_.Stepped();
    winamp_.WinAMP_FF();
}

void FileSource::DoRW() {
    position_.Stepped();
    winamp_.WinAMP_RW();
}

void FileSource::DoPlay() {
    if (!audio_.bPaused) return runok();
    Unpause();
    Command(WinampPlay);
}

void FileSource::DoPause() {
    if (c_.base.state.InSuspend) return PauseAsleep();
    if (audio_.bPaused) {
        Command(WinampPlay);
        return Unpause();
    }
    Command(WinampPause);
    view_.SetButton(PlayerButton::Pause, "play.gif");
    audio_.bPaused = true;
    saved_.SaveProgress();
}

// The ignition, while the machine is on its way into sleep or out of it: the player process stays
// silent until that is over.
void FileSource::PauseAsleep() {
    audio_.bPaused = !audio_.bPaused;
    view_.SetButton(PlayerButton::Pause, audio_.bPaused ? "play.gif" : "pause.gif");
    suspended_ = true;
}

void FileSource::Unpause() {
    audio_.bPaused = false;
    view_.SetButton(PlayerButton::Pause, "pause.gif");
}

void FileSource::EverySecond() {
    if (!started_ && Playing()) StartedLate();
    position_.Refresh(audio_.bPaused);
    ShowTrackTime();
    if (!bitRateKnown_) ShowBitRate();
    FollowTrack();
    ShowStreamTitle();
}

void FileSource::ShowStreamTitle() {
    const Track* track = c_.rows.Find(audio_.CurrentTrack);
    if (!track || !track->IsStream()) return;
    const std::string title = winamp_.WinAMP_GetTitle();
    if (title.empty() || !c_.rows.Rename(audio_.CurrentTrack, title)) return;
    view_.ShowTitle(title);
    view_.ReDrawList();
}

// After all patience; where it was to go on at is left to the next start.
void FileSource::StartedLate() {
    started_ = true;
    saved_.StartedLate();
    UpdateScreen();
}

// There is no end-of-track event: the player process goes on by itself.
void FileSource::FollowTrack() {
    const std::int32_t track = winamp_.WinAMP_gettracknum();
    if (track == audio_.CurrentTrack || !Playing()) return;
    ShowPlaying(track);
}

void FileSource::ShowTrackTime() {
    view_.ShowTrackTime(position_.TrackTime(c_.base.settings.values.ShowElapsedTime));
}

Favorite FileSource::SelectedFavorite() {
    const Track* track = audio_.OnDisc() ? nullptr : c_.rows.Find(c_.rows.Selected());
    return track && !track->IsDiscTrack() ? AudioFavorite(track->path) : Favorite{};
}

// Behind another screen nothing else follows the player process; and where the stopwatch stands it
// is asked.
NowPlaying FileSource::Now() {
    FollowTrack();
    ShowStreamTitle();
    const Track* track = c_.rows.Find(audio_.CurrentTrack);
    if (!track) return {};
    const bool known = position_.Known();
    const auto position =
        known ? static_cast<std::int32_t>(position_.Position()) : winamp_.WinAMP_GetTrackPosition();
    return {track->title, track->artist, position, winamp_.WinAMP_GetStatus() == "1"};
}

void FileSource::GoOn(std::int32_t track, std::int32_t seconds) {
    if (!started_) return;
    const LoadingSign sign{view_};
    const bool paused = audio_.bPaused;
    if (c_.rows.Find(track)) audio_.CurrentTrack = track;
    audio_.TrackToSelect = audio_.CurrentTrack + 1;
    audio_.bResuming = true;
    audio_.ResumePosition = seconds;
    saved_.Loading(seconds);
    StartPlaying();
    if (paused && started_) DoPause();
}

std::string FileSource::MediaTypeIcon() const {
    if (!audio_.OnDisc()) return "mp3icon.gif";
    const Track* track = c_.rows.Find(audio_.CurrentTrack);
    return track && track->IsDiscTrack() ? "cdicon.gif" : "mp3icon.gif";
}

SourceMaker AudioFiles(cWinamp& winamp, CatalogueQuery query) {
    return [&winamp, query = std::move(query)](const SourceContext& context) {
        return std::make_unique<FileSource>(context, winamp, query);
    };
}

} // namespace vk
