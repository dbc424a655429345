#include "playback/audio/audio_player.h"

#include "platform/files.h"
#include "playback/audio/busy_guard.h"

namespace vk {

namespace {

constexpr const char* FormName = "playmp3";
constexpr int TickMs = 100;

std::string ErrorIn(const char* operation) {
    return std::string("Error occured in Playmp3.") + operation + " ";
}

} // namespace

AudioPlayer::AudioPlayer(Needs needs, ListModel& list, PlayerView& view)
    : n_(std::move(needs)), list_(list), view_(view),
      rows_({list_, n_.settings, n_.tagOf, [this] { n_.clock.DoEvents(0); }}),
      cover_({n_.audio, n_.app, n_.settings.AppDir(), n_.log, view_, n_.xmLogo}),
      clockLine_(n_.clock, n_.locale, view_),
      files_({n_.audio, n_.app, n_.winamp, n_.settings, n_.clock, n_.log, view_, rows_, cover_,
              n_.query, [this](const std::string& text) { clockLine_.ShowProblem(text); }}),
      volume_({n_.volume, n_.settings, n_.app, n_.screens, n_.clock, view_}), lineMute_(n_.volume),
      Timer2(n_.clock.MakeTimer([this] { Timer2_Timer(); })) {}

PlayerSource* AudioPlayer::Source(std::int32_t mode) {
    if (mode == PlayAudio) return &files_;
    return mode == PlayFM ? n_.fm : mode == PlayXM ? n_.xm : nullptr;
}

void AudioPlayer::WithSource(const char* where,
                             const std::function<void(PlayerSource&)>& operation) {
    TrapAndLog(n_.report, ErrorIn(where), [&] {
        if (PlayerSource* source = Source()) operation(*source);
    });
}

// Entering and leaving ---------------------------------------------------------------------------

void AudioPlayer::Enter() {
    bInPlayer = false;
    n_.screens.CurrentForm = FormName;
    clockLine_.Refresh();
    view_.ShowListTitle(n_.audio.ListTitle);
    view_.ShowFrame(true);
    view_.ShowAtFront();
    n_.screens.HideOthers(FormName);
}

void AudioPlayer::Ready() {
    LetGo();
    TickCount = 0;
    bForceUpdate = true;
    RefreshLater();
    Timer2->Start(TickMs);
    view_.ShowFrame(true);
    volume_.Enter();
    bInPlayer = true;
}

void AudioPlayer::ReShow() {
    TrapAndLog(n_.report, "There has been an error in playmp3.ReShow ", [&] {
        const BusyGuard busy(n_.app.ListBusy);
        Enter();
        volume_.SetFirstLevel();
        // Before anything can save it.
        if (n_.audio.PlayMode == PlayAudio && FileLength(n_.audio.ListFile) > 0) ShowShuffle();
        if (n_.audio.PlayMode != PlayAudio)
            EnterTuner(n_.audio.PlayMode);
        else if (n_.audio.bStartPlaying || n_.audio.ListFile != shownList_)
            LoadPlaylist();
        SetMediaTypeIcon();
        SetPlayerButton();
        Ready();
    });
    n_.volume.ShowHardwareProblem(); // it waits for an answer, and the music does not
}

void AudioPlayer::ReDisplay() {
    TrapAndLog(n_.report, "Error in Playmp3.Redisplay ", [&] {
        const BusyGuard busy(n_.app.ListBusy);
        Enter();
        n_.audio.PlayMode == PlayAudio ? ShowShuffle() : DrawShuffle(false);
        SetMediaTypeIcon();
        SetPlayerButton();
        if (n_.audio.bStartPlaying) {
            if (PlayerSource* source = Source()) source->LeaveScreen();
            SilenceOtherSources();
            n_.audio.bPaused = false;
            view_.SetButton(PlayerButton::Pause, "pause.gif");
            LoadPlaylist();
            SetMediaTypeIcon(); // a disc's follows its track
        }
        Ready();
    });
}

void AudioPlayer::SilenceOtherSources() {
    if (n_.winamp.WinAMP_FindWindow()) n_.winamp.WinAMP_SCM(WinampStop);
    if (n_.audio.PlayMode != PlayFM) TurnOffRadio();
    if (n_.xm && n_.audio.PlayMode != PlayXM) n_.xm->Stop();
}

void AudioPlayer::LoadPlaylist() {
    WithSource("LoadPlaylist", [&](PlayerSource& source) {
        shownList_ = n_.audio.ListFile;
        source.LoadPlaylist();
    });
}

void AudioPlayer::SaveAudioData(std::int32_t mode) {
    TrapAndLog(n_.report, ErrorIn("SaveAudioData"), [&] {
        if (const auto level = volume_.LevelToKeep())
            n_.settings.Write("audio_player", "Volume", std::to_string(*level));
        if (PlayerSource* source = Source(mode == PlayNone ? n_.audio.PlayMode : mode))
            source->Save();
    });
}

void AudioPlayer::switchingform() {
    TrapAndLog(n_.report, ErrorIn("switchingform"), [&] {
        const BusyGuard busy(n_.app.ListBusy);
        Timer2->Stop();
        LetGo();
        view_.ShowFrame(false);
        n_.settings.Write("main", "LastPlayMode", std::to_string(n_.audio.PlayMode));
        if (PlayerSource* source = Source()) source->LeaveScreen();
    });
}

void AudioPlayer::doquit() {
    TrapAndLog(n_.report, ErrorIn("doquit"), [&] {
        view_.ShowLoading("");
        if (!bInPlayer) return;
        bInPlayer = false;
        view_.ShowFrame(true);
        n_.audio.bStartPlaying = false;
        SaveAudioData();
        LeaveSource();
        if (n_.audio.PlayMode != PlayAudio) n_.audio.ListTitle.clear(); // it was the tuner's
        switchingform();
        cover_.Hide();
        n_.audio.PlayMode = PlayNone;
        n_.audio.bPaused = false;
        if (n_.screens.CurrentForm == FormName) n_.screens.Show("velkorandum");
    });
}

void AudioPlayer::Swap() {
    TrapAndLog(n_.report, ErrorIn("swap"), [&] {
        if (!bInPlayer || !n_.screens.Find("playlists")) return;
        const bool remembers = n_.audio.PlayMode == PlayAudio || n_.audio.PlayMode == PlayXM;
        if (remembers) SaveAudioData();
        n_.browser.ListMode = ListFromAudio;
        n_.browser.CurrentPath = n_.settings.values.MediaDir;
        n_.browser.RestoreHistory = remembers;
        n_.browser.FromPlayer = true;
        switchingform();
        n_.screens.Show("playlists");
    });
}

void AudioPlayer::Form_Unload(bool osShutdown) {
    TrapAndLog(n_.report, ErrorIn("Form_Unload"), [&] {
        if (osShutdown)
            n_.log.WriteDebugLog("form unloaded by administrative request - os shutdown");
        const BusyGuard busy(n_.app.ListBusy);
        SaveAudioData();
        volume_.Unload();
        Timer2->Stop();
    });
}

// The sources' operations ------------------------------------------------------------------------

void AudioPlayer::runok() {
    bForceUpdate = true;
    WithSource("runok", [](PlayerSource& source) { source.runok(); });
}

void AudioPlayer::MoveAhead() {
    bForceUpdate = true;
    WithSource("MoveAhead", [](PlayerSource& source) { source.MoveAhead(); });
}

void AudioPlayer::MoveBack() {
    bForceUpdate = true;
    WithSource("MoveBack", [](PlayerSource& source) { source.MoveBack(); });
}

void AudioPlayer::Step(void (PlayerSource::*step)(), const char* where) {
    WithSource(where, [&](PlayerSource& source) { (source.*step)(); });
    view_.ShowLoading("");
}

void AudioPlayer::DoFF() {
    bForceUpdate = true;
    Step(&PlayerSource::DoFF, "DoFF");
}

void AudioPlayer::DoRW() {
    bForceUpdate = true;
    Step(&PlayerSource::DoRW, "DoRW");
}

void AudioPlayer::DoPlay() {
    Step(&PlayerSource::DoPlay, "DoPlay");
}

void AudioPlayer::DoPause() {
    Step(&PlayerSource::DoPause, "DoPause");
}

void AudioPlayer::UpdateScreen() {
    WithSource("UpdateScreen", [](PlayerSource& source) { source.UpdateScreen(); });
}

void AudioPlayer::SetMediaTypeIcon() {
    WithSource("SetMediaTypeIcon",
               [&](PlayerSource& source) { view_.ShowMediaType(source.MediaTypeIcon()); });
}

// List, volume, shuffle --------------------------------------------------------------------------

void AudioPlayer::MoveList(void (ListModel::*move)(), const char* where) {
    TrapAndLog(n_.report, ErrorIn(where), [&] {
        (list_.*move)();
        ListMoved();
    });
}

void AudioPlayer::ListMoved() {
    rows_.ReadTagsOnPage();
    view_.ReDrawList();
}

void AudioPlayer::MoveUp() {
    MoveList(&ListModel::MoveUp, "MoveUp");
}

void AudioPlayer::MoveDown() {
    MoveList(&ListModel::MoveDown, "MoveDown");
}

void AudioPlayer::PgUp() {
    MoveList(&ListModel::PageUp, "PgUp");
}

void AudioPlayer::PgDn() {
    MoveList(&ListModel::PageDown, "PgDn");
}

void AudioPlayer::VolUp() {
    TrapAndLog(n_.report, ErrorIn("volup"), [&] { volume_.VolUp(); });
}

void AudioPlayer::VolDown() {
    TrapAndLog(n_.report, ErrorIn("voldown"), [&] { volume_.VolDown(); });
}

void AudioPlayer::domute() {
    TrapAndLog(n_.report, ErrorIn("domute"), [&] { volume_.domute(); });
}

// Any number but 0 is "on": other programs write -1.
static bool ReadShuffle(SettingsStore& settings, std::string& text) {
    text = settings.ini().ReadText(settings.File("winamp.ini"), "winamp", "shuffle");
    return ConvertIniText(text, IniType::Long, ".").Long() != 0;
}

void AudioPlayer::ShowShuffle() {
    std::string text;
    n_.audio.bShuffle = ReadShuffle(n_.settings, text);
    n_.log.WriteDebugLog("winamp.ini shuffle=" + text);
    DrawShuffle(n_.audio.bShuffle);
}

void AudioPlayer::DrawShuffle(bool on) {
    view_.ShowShuffle(on);
    view_.SetButton(PlayerButton::Shuffle, on ? "shufflesel.gif" : "shuffle.gif");
}

void AudioPlayer::setshuffle() {
    TrapAndLog(n_.report, ErrorIn("setshuffle"), [&] {
        std::string text;
        const bool on = !ReadShuffle(n_.settings, text);
        n_.winamp.WinAMP_SCM(WinampToggleShuffle);
        n_.audio.bShuffle = on;
        DrawShuffle(on);
        n_.settings.ini().WriteINI(n_.settings.File("winamp.ini"), "winamp", "shuffle",
                                   on ? "1" : "0");
    });
}

void AudioPlayer::TrackTimeLabel_Click() {
    TrapAndLog(n_.report, ErrorIn("TrackTimeLabel_Click"), [&] {
        bool& elapsed = n_.settings.values.ShowElapsedTime;
        elapsed = !elapsed;
        n_.settings.WriteBool("audio_player", "ShowElapsedTime", elapsed);
        if (n_.audio.PlayMode == PlayAudio) files_.ShowTrackTime();
    });
}

void AudioPlayer::Wheel(int delta) {
    if (delta == 0) return;
    const bool up = delta > 0;
    if (n_.settings.values.MouseFunction == 1) {
        for (std::int32_t i = 0; i < n_.settings.values.WheelSteps(); ++i)
            up ? VolUp() : VolDown();
    } else if (n_.audio.PlayMode == PlayXM || n_.audio.PlayMode == PlayAudio) {
        up ? MoveUp() : MoveDown();
    } else {
        WithSource(up ? "FineTuneUp" : "FineTuneDown",
                   [&](PlayerSource& source) { up ? source.DoFF() : source.DoRW(); });
    }
}

} // namespace vk
