#include "playback/audio/audio_player.h"

#include <functional>

namespace vk {

namespace {

constexpr const char* FormName = "playmp3";
constexpr int VisNameMs = 4000;

std::string ErrorIn(const char* operation) {
    return std::string("Error occured in Playmp3.") + operation + " ";
}

} // namespace

AudioPlayer::AudioPlayer(Needs needs, ListModel& list, PlayerView& view)
    : n_(std::move(needs)), base_(n_.base), list_(list), view_(view),
      rows_(base_, list, std::move(n_.tagOf)), cover_(base_, view), clockLine_(base_, view),
      volumeLabel_(base_, n_.loudness, view),
      shuffle_(base_, n_.audio, n_.winamp, view), parts_{base_, n_.audio, n_.loudness, view,
                                                         rows_, cover_,   clockLine_,  shuffle_},
      sources_(parts_, n_.winamp, n_.sources),
      buttons_(base_, view,
               {[this](HeldAction action) { DoHeld(action); },
                [this](bool ahead) {
                    ticks_.Soon();
                    Ask(ahead ? "MoveAhead" : "MoveBack",
                        [&](PlayerSource& source) { source.ShortPress(ahead); });
                }}),
      ticks_({parts_, sources_, buttons_, volumeLabel_, n_.checkDaylight, [this] { doquit(); },
              [this] { vis_.Tick(); }}),
      vis_({base_, n_.winamp, n_.vis, [this] { LeaveForVis(); }, [this] { ComeBackFromVis(); }}) {}

void AudioPlayer::Ask(const char* where, const std::function<void(PlayerSource&)>& operation) {
    TrapAndLog(base_.report, ErrorIn(where), [&] {
        if (PlayerSource* source = sources_.Current()) operation(*source);
    });
}

// Entering and leaving ---------------------------------------------------------------------------

void AudioPlayer::Enter() {
    bInPlayer = false;
    base_.screens.CurrentForm = FormName;
    clockLine_.Refresh();
    view_.ShowListTitle(n_.audio.ListTitle);
    view_.ShowFrame(true);
    view_.ShowAtFront();
    base_.screens.HideOthers(FormName);
}

void AudioPlayer::Ready() {
    buttons_.LetGo();
    ticks_.Start();
    view_.ShowFrame(true);
    volumeLabel_.Enter();
    bInPlayer = true;
}

void AudioPlayer::ReShow() {
    TrapAndLog(base_.report, "There has been an error in playmp3.ReShow ", [&] {
        Enter();
        n_.loudness.Enter(setting::AudioVolume);
        if (PlayerSource* source = sources_.Current()) source->Enter();
        sources_.SetMediaTypeIcon();
        sources_.SetPlayerButton();
        Ready();
    });
    n_.loudness.ShowHardwareProblem(); // it waits for an answer, and the music does not
}

void AudioPlayer::ReDisplay() {
    TrapAndLog(base_.report, "Error in Playmp3.Redisplay ", [&] {
        Enter();
        PlayerSource* source = sources_.Current();
        if (source) source->EnterAgain();
        sources_.SetPlayerButton();
        if (n_.audio.bStartPlaying) {
            if (source) source->LeaveScreen();
            sources_.SilenceOthers();
            n_.audio.bPaused = false;
            view_.SetButton(PlayerButton::Pause, "pause.gif");
            if (source) source->LoadPlaylist();
        }
        sources_.SetMediaTypeIcon(); // a disc's follows its track
        Ready();
    });
}

void AudioPlayer::SaveAudioData(std::int32_t mode) {
    TrapAndLog(base_.report, ErrorIn("SaveAudioData"), [&] {
        KeepVolume();
        if (PlayerSource* source = sources_.Find(mode == PlayNone ? n_.audio.PlayMode : mode))
            source->Save();
    });
}

void AudioPlayer::KeepVolume() {
    if (const auto level = n_.loudness.LevelToKeep(setting::AudioVolume))
        base_.settings.Set(setting::AudioVolume, *level);
}

void AudioPlayer::Suspend() {
    TrapAndLog(base_.report, ErrorIn("DoVis"), [this] { vis_.Suspend(); });
    Ask("Suspend", [this](PlayerSource& source) {
        KeepVolume();
        source.Suspend();
    });
}

void AudioPlayer::Resume() {
    ticks_.Soon();
    Ask("Resume", [](PlayerSource& source) { source.Resume(); });
}

void AudioPlayer::switchingform() {
    TrapAndLog(base_.report, ErrorIn("switchingform"), [&] {
        ticks_.Stop();
        buttons_.LetGo();
        view_.ShowFrame(false);
        base_.settings.Set(setting::LastPlayMode, n_.audio.PlayMode);
        if (PlayerSource* source = sources_.Current()) source->LeaveScreen();
    });
}

void AudioPlayer::doquit() {
    TrapAndLog(base_.report, ErrorIn("doquit"), [&] {
        view_.ShowLoading("");
        if (!bInPlayer) return;
        if (vis_.On()) return vis_.DoVis();
        bInPlayer = false;
        view_.ShowFrame(true);
        n_.audio.bStartPlaying = false;
        SaveAudioData();
        if (PlayerSource* source = sources_.Current()) source->Stop();
        switchingform();
        cover_.Hide();
        n_.audio.PlayMode = PlayNone;
        n_.audio.bPaused = false;
        n_.browser.FromPlayer = false; // there is nothing to go back to
        if (base_.screens.CurrentForm == FormName) base_.screens.Show("velkorandum");
    });
}

void AudioPlayer::Swap() {
    LeaveFor(ListFromAudio);
}

void AudioPlayer::ShowApplications() {
    LeaveFor(ListApplications);
}

void AudioPlayer::LeaveFor(std::int16_t listMode) {
    TrapAndLog(base_.report, ErrorIn("swap"), [&] {
        if (!bInPlayer || vis_.On() || !base_.screens.Find("playlists")) return;
        const PlayerSource* source = sources_.Current();
        const bool remembers = source && source->RemembersChoice();
        if (remembers) SaveAudioData();
        n_.browser.ListMode = listMode;
        n_.browser.CurrentPath = base_.settings.values.MediaDir;
        n_.browser.RestoreHistory = remembers;
        n_.browser.FromPlayer = true;
        switchingform();
        base_.screens.Show("playlists");
    });
}

void AudioPlayer::Form_Unload(bool osShutdown) {
    TrapAndLog(base_.report, ErrorIn("Form_Unload"), [&] {
        if (osShutdown)
            base_.log.WriteDebugLog("form unloaded by administrative request - os shutdown");
        vis_.Unload();
        SaveAudioData();
        n_.loudness.Unload();
        ticks_.Stop();
    });
}

void AudioPlayer::TSRadio2MP3Btn_Click() {
    TrapAndLog(base_.report, "Error occured in Playmp3.TSRadio2MP3Btn_Click ", [&] {
        SaveAudioData();
        ticks_.Soon();
        if (!sources_.SwitchToNext()) doquit();
    });
}

// The source's operations ------------------------------------------------------------------------

void AudioPlayer::runok() {
    ticks_.Soon();
    Ask("runok", [](PlayerSource& source) { source.runok(); });
}

void AudioPlayer::MoveAhead() {
    skippedMs_ = base_.clock.TickMs();
    ticks_.Soon();
    Ask("MoveAhead", [](PlayerSource& source) { source.MoveAhead(); });
}

void AudioPlayer::MoveBack() {
    skippedMs_ = base_.clock.TickMs();
    ticks_.Soon();
    Ask("MoveBack", [](PlayerSource& source) { source.MoveBack(); });
}

void AudioPlayer::Step(const char* where, void (PlayerSource::*step)()) {
    Ask(where, [&](PlayerSource& source) { (source.*step)(); });
    view_.ShowLoading("");
}

void AudioPlayer::DoFF() {
    ticks_.Soon();
    Step("DoFF", &PlayerSource::DoFF);
}

void AudioPlayer::DoRW() {
    ticks_.Soon();
    Step("DoRW", &PlayerSource::DoRW);
}

void AudioPlayer::Hold(bool ahead) {
    ticks_.Soon();
    Ask(ahead ? "DoFF" : "DoRW", [&](PlayerSource& source) { source.Held(ahead); });
    view_.ShowLoading("");
}

void AudioPlayer::DoPlay() {
    Step("DoPlay", &PlayerSource::DoPlay);
}

void AudioPlayer::DoPause() {
    Step("DoPause", &PlayerSource::DoPause);
}

NowPlaying AudioPlayer::Now() {
    PlayerSource* source = sources_.Current();
    return source ? source->Now() : NowPlaying{};
}

bool AudioPlayer::NeedsPlayer() const {
    const PlayerSource* source = sources_.Current();
    return source && source->NeedsPlayer();
}

void AudioPlayer::GoOn(std::int32_t track, std::int32_t seconds) {
    Ask("GoOn", [&](PlayerSource& source) { source.GoOn(track, seconds); });
}

void AudioPlayer::AddToFavorites() {
    TrapAndLog(base_.report, "An error occured in playmp3.AddToFavorites() ",
               [&] { sources_.AddToFavorites(); });
}

// List, shuffle, time ----------------------------------------------------------------------------

void AudioPlayer::MoveList(void (ListModel::*move)(), const char* where) {
    TrapAndLog(base_.report, ErrorIn(where), [&] {
        std::invoke(move, list_);
        rows_.ReadTagsOnPage();
        view_.ReDrawList();
    });
}

void AudioPlayer::setshuffle() {
    TrapAndLog(base_.report, ErrorIn("setshuffle"), [&] { shuffle_.setshuffle(); });
}

// Visualisation ----------------------------------------------------------------------------------

void AudioPlayer::DoVis() {
    TrapAndLog(base_.report, ErrorIn("DoVis"), [&] {
        view_.ShowLoading("");
        if (bInPlayer) vis_.DoVis();
    });
}

void AudioPlayer::NextVis() {
    TrapAndLog(base_.report, ErrorIn("NextVis"), [&] {
        const std::string name = vis_.NextVis();
        clockLine_.ShowNotice(name.empty() ? "No other visualisation" : name, VisNameMs);
    });
}

void AudioPlayer::LeaveForVis() {
    ticks_.Stop();
    buttons_.LetGo();
    view_.ShowFrame(false);
}

void AudioPlayer::ComeBackFromVis() {
    ticks_.Start();
    Ask("UpdateScreen", [](PlayerSource& source) { source.UpdateScreen(); });
    view_.ShowFrame(true);
    clockLine_.Refresh();
}

void AudioPlayer::TrackTimeLabel_Click() {
    TrapAndLog(base_.report, ErrorIn("TrackTimeLabel_Click"), [&] {
        base_.settings.Set(setting::ShowElapsedTime, !base_.settings.values.ShowElapsedTime);
        if (PlayerSource* source = sources_.Current()) source->ShowTrackTime();
    });
}

void AudioPlayer::LoadGPS() {
    if (vis_.On()) DoVis(); // it would lie over the map
    if (n_.loadGPS) n_.loadGPS();
}

} // namespace vk
