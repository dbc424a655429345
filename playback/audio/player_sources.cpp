// The change from one source of the player to another, and the favourites of each.
#include "core/text.h"
#include "playback/audio/audio_player.h"
#include "playback/audio/busy_guard.h"
#include "playback/audio/source_table.h"
#include "playback/resume.h"

namespace vk {

namespace {

constexpr int AddedMs = 800;
constexpr const char* NoRadio = "The radio is not available.";
constexpr const char* XMWait = "Please wait while the XM channel list is initialized...";

Tuners EnabledTuners(const Settings& settings, const AppState& app) {
    return {settings.dlink_enabled, settings.xmpcr_enabled, app.FirstRadioType == 1};
}

} // namespace

void AudioPlayer::SetPlayerButton() {
    const Tuners tuners = EnabledTuners(n_.settings.values, n_.app);
    view_.SetButton(PlayerButton::Source, SourcePicture(NextSource(n_.audio.PlayMode, tuners)));
}

void AudioPlayer::TSRadio2MP3Btn_Click() {
    if (n_.app.ListBusy) return;
    TrapAndLog(n_.report, "Error occured in Playmp3.TSRadio2MP3Btn_Click ", [&] {
        SaveAudioData();
        const Tuners tuners = EnabledTuners(n_.settings.values, n_.app);
        const PlayModeValue next = NextSource(n_.audio.PlayMode, tuners);
        if (next == PlayNone || !CanSwitchTo(next)) return;
        if (n_.audio.PlayMode != PlayAudio) LeaveSource();
        SwitchTo(next);
    });
}

// Asked before the present source is silenced: better that than nothing.
bool AudioPlayer::CanSwitchTo(std::int32_t mode) {
    if (mode == PlayAudio) {
        if (HasListToResume(n_.settings)) return true;
        clockLine_.ShowProblem(NothingToResume);
        return false;
    }
    if (Source(mode)) return true;
    clockLine_.ShowProblem(NoRadio);
    return false;
}

void AudioPlayer::SwitchTo(std::int32_t mode) {
    if (mode == PlayAudio) return SwitchToAudio();
    mode == PlayFM ? SwitchToFM() : SwitchToXM();
}

void AudioPlayer::LeaveSource() {
    if (n_.audio.PlayMode == PlayFM)
        TurnOffRadio();
    else if (PlayerSource* source = Source())
        source->Stop();
}

void AudioPlayer::TurnOffRadio() {
    if (!n_.fm) return;
    const std::int32_t input = n_.settings.values.dlink_audio_input;
    MuteLine(input, false);
    n_.fm->Stop();
    RestoreMuteState(input);
}

void AudioPlayer::SwitchToAudio() {
    const ResumeResult result = PrepareResume(n_.settings, n_.volumes, n_.audio);
    if (result == ResumeResult::NoList) return clockLine_.ShowProblem(NothingToResume);
    if (result == ResumeResult::DiscMissing) return doquit();
    n_.audio.bResuming = true; // the button means it, whatever the start of the system does
    n_.audio.ListTitle.clear();
    ShowShuffle();
    LoadPlaylist();
    SetMediaTypeIcon();
    SetPlayerButton();
    bForceUpdate = true;
}

void AudioPlayer::SwitchToFM() {
    if (!CanSwitchTo(PlayFM)) return;
    n_.audio.bShuffle = false;
    files_.GiveWay();
    n_.audio.PlayMode = PlayFM;
    n_.audio.bStartPlaying = true;
    n_.audio.ListFile = n_.settings.File("presets.lst");
    n_.audio.ListTitle = FMSourceName;
    EnterTuner(PlayFM);
}

// The mode follows when the receiver is there: what is saved before then is the old source's.
void AudioPlayer::SwitchToXM() {
    if (!CanSwitchTo(PlayXM)) return;
    SaveAudioData();
    files_.GiveWay();
    EnterTuner(PlayXM);
}

void AudioPlayer::EnterTuner(std::int32_t mode) {
    PlayerSource* tuner = Source(mode);
    if (!tuner) return;
    const BusyGuard busy(n_.app.ListBusy);
    ClearTrack();
    DrawShuffle(false);
    if (mode == PlayXM) view_.ShowLoading(XMWait);
    StartTuner(*tuner, mode);
}

void AudioPlayer::ClearTrack() {
    cover_.Hide();
    view_.ShowArtist("");
    view_.ShowTitle("");
    view_.ShowBitRate("");
    view_.ShowTrackTime("");
}

// The line is silent until the tuner is on its station. The FM tuner is tuned as its list is
// loaded; the satellite receiver plays by itself.
void AudioPlayer::StartTuner(PlayerSource& tuner, std::int32_t mode) {
    const Settings& settings = n_.settings.values;
    const std::int32_t input =
        mode == PlayFM ? settings.dlink_audio_input : settings.xmpcr_audio_input;
    const std::int32_t before = n_.audio.PlayMode;
    MuteLine(input, true);
    const bool ready = tuner.Start();
    view_.ShowLoading("");
    if (n_.audio.PlayMode != before) { // the player was left in the events of the wait
        tuner.Stop();
        return RestoreMuteState(input);
    }
    if (n_.audio.PlayMode != mode) TakeXMList();
    view_.ShowListTitle(n_.audio.ListTitle);
    SetMediaTypeIcon();
    SetPlayerButton();
    if (!ready) {
        RestoreMuteState(input);
        return clockLine_.ShowProblem(NoRadio);
    }
    if (mode == PlayFM) LoadPlaylist();
    UnMuteLine(input);
    if (mode == PlayXM) LoadPlaylist();
    clockLine_.Refresh();
}

void AudioPlayer::TakeXMList() {
    n_.audio.PlayMode = PlayXM;
    n_.audio.ListFile = n_.settings.Read("xmpcr_tuner", "PresetList");
    n_.audio.ListTitle =
        n_.audio.ListFile.empty() ? XMSourceName : n_.settings.Read("xmpcr_tuner", "ListTitle");
}

// Favourites -------------------------------------------------------------------------------------

void AudioPlayer::AddToFavorites() {
    TrapAndLog(n_.report, "An error occured in playmp3.AddToFavorites() ", [&] {
        PlayerSource* source = Source();
        if (!source || (n_.audio.PlayMode == PlayAudio && n_.audio.OnDisc())) return;
        const Favorite favorite = source->SelectedFavorite();
        if (favorite.list.empty()) return;
        try {
            if (AddFavorite(n_.settings.AppDir(), favorite))
                clockLine_.ShowNotice("ADDING: " + ToUtf8(favorite.entry), AddedMs);
        } catch (const std::exception& error) {
            clockLine_.ShowProblem(error.what());
            throw;
        }
    });
}

void AudioPlayer::TSAddFavBtn_Click() {
    if (!n_.app.ListBusy) AddToFavorites();
}

} // namespace vk
