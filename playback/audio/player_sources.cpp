// The change from one source of the player to another, and the favourites of each.
#include "core/text.h"
#include "playback/audio/audio_player.h"
#include "playback/audio/busy_guard.h"
#include "playback/audio/source_table.h"
#include "playback/resume.h"

namespace vk {

namespace {

constexpr int AddedMs = 800;
constexpr int ProblemMs = 4000; // what went wrong takes longer to read
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
        clockLine_.ShowNotice(NothingToResume, ProblemMs);
        return false;
    }
    if (Source(mode)) return true;
    clockLine_.ShowNotice("The radio is not available.", ProblemMs);
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
    if (result == ResumeResult::NoList) return clockLine_.ShowNotice(NothingToResume, ProblemMs);
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
    n_.audio.bShuffle = false;
    view_.ShowShuffle(false);
    files_.GiveWay();
    n_.audio.PlayMode = PlayFM;
    n_.audio.bStartPlaying = true;
    n_.audio.ListFile = n_.settings.File("presets.lst");
    n_.audio.ListTitle = "D-Link FM Radio";
    EnterTuner();
}

void AudioPlayer::SwitchToXM() {
    SaveAudioData();
    if (n_.audio.bShuffle) view_.SetButton(PlayerButton::Shuffle, "shuffle.gif");
    view_.ShowShuffle(false);
    files_.GiveWay();
    n_.audio.PlayMode = PlayXM;
    n_.audio.ListFile = n_.settings.Read("xmpcr_tuner", "PresetList");
    n_.audio.ListTitle = n_.audio.ListFile.empty() ? "XM Satellite Radio"
                                                   : n_.settings.Read("xmpcr_tuner", "ListTitle");
    EnterTuner();
}

void AudioPlayer::EnterTuner() {
    PlayerSource* tuner = Source();
    if (!tuner) return;
    cover_.Hide();
    view_.ShowArtist("");
    view_.ShowTitle("");
    view_.ShowBitRate("");
    view_.ShowTrackTime("");
    view_.ShowListTitle(n_.audio.ListTitle);
    SetMediaTypeIcon();
    SetPlayerButton();
    if (n_.audio.PlayMode == PlayXM) view_.ShowLoading(XMWait);
    const BusyGuard busy(n_.app.ListBusy);
    if (StartTuner(*tuner)) clockLine_.Refresh();
}

std::int32_t AudioPlayer::TunerInput() const {
    const Settings& s = n_.settings.values;
    return n_.audio.PlayMode == PlayFM ? s.dlink_audio_input : s.xmpcr_audio_input;
}

// The line is silent until the tuner is on its station. The FM tuner is tuned as its list is
// loaded; the satellite receiver plays by itself.
bool AudioPlayer::StartTuner(PlayerSource& tuner) {
    const bool fm = n_.audio.PlayMode == PlayFM;
    const std::int32_t input = TunerInput();
    MuteLine(input, true);
    const bool ready = tuner.Start();
    view_.ShowLoading("");
    const bool left = Source() != &tuner;
    if (left || !ready) {
        RestoreMuteState(input);
        if (!left) clockLine_.ShowNotice("The radio is not available.", ProblemMs);
        return false;
    }
    if (fm) LoadPlaylist();
    UnMuteLine(input);
    if (!fm) LoadPlaylist();
    return true;
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
            clockLine_.ShowNotice(error.what(), ProblemMs);
            throw;
        }
    });
}

void AudioPlayer::TSAddFavBtn_Click() {
    if (!n_.app.ListBusy) AddToFavorites();
}

} // namespace vk
