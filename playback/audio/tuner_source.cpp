#include "playback/audio/tuner_source.h"

namespace vk {

namespace {

void TakePresets(SettingsStore& settings, AudioState& audio) {
    audio.bShuffle = false;
    audio.bStartPlaying = true;
    audio.ListFile = settings.File("presets.lst");
    audio.ListTitle = FMSourceName;
}

void TakeChannels(SettingsStore& settings, AudioState& audio) {
    audio.ListFile = settings.Get(setting::PresetList);
    audio.ListTitle = audio.ListFile.empty() ? XMSourceName : settings.Get(setting::ListTitle);
}

} // namespace

const TunerKind FMKind = {PlayFM, &Settings::dlink_audio_input, "", false, TakePresets};
const TunerKind XMKind = {PlayXM, &Settings::xmpcr_audio_input,
                          "Please wait while the XM channel list is initialized...", true,
                          TakeChannels};

bool TunerSource::SwitchTo() {
    if (!kind_.hasChannels) TakeMode();
    Begin(kind_.hasChannels);
    return true;
}

void TunerSource::TakeMode() {
    c_.audio.PlayMode = kind_.mode;
    kind_.takeList(c_.base.settings, c_.audio);
}

// The line is silent until the tuner is on its station.
void TunerSource::Begin(bool switches) {
    LineMute& lines = c_.loudness.Lines();
    lines.MuteLine(Input(), true);
    const Waited started = StartShown();
    if (started == Waited::Ended) { // the user leaves
        PowerDown();
        return lines.RestoreMuteState(Input());
    }
    if (switches) TakeMode();
    ShowName();
    if (started == Waited::Done) return StartPlaying();
    lines.RestoreMuteState(Input());
    c_.clockLine.ShowProblem(NoRadio);
}

Waited TunerSource::StartShown() {
    PlayerView& view = c_.view;
    c_.cover.Hide();
    view.ShowArtist("");
    view.ShowTitle("");
    view.ShowBitRate("");
    view.ShowTrackTime("");
    c_.shuffle.ShowNone();
    view.ShowLoading(kind_.waitText);
    const Waited started = Start();
    view.ShowLoading("");
    return started;
}

void TunerSource::ShowName() {
    c_.view.ShowListTitle(c_.audio.ListTitle);
    c_.view.ShowMediaType(MediaTypeIcon());
}

void TunerSource::StartPlaying() {
    if (!kind_.hasChannels) LoadPlaylist();
    c_.loudness.Lines().UnMuteLine(Input());
    if (kind_.hasChannels) LoadPlaylist();
    c_.clockLine.Refresh();
}

void TunerSource::GiveWay() {
    c_.loudness.Lines().MuteLine(Input(), false);
    PowerDown();
    c_.loudness.Lines().RestoreMuteState(Input());
}

void TunerSource::Stop() {
    GiveWay();
    c_.audio.ListTitle.clear(); // it was the tuner's
}

} // namespace vk
