#include "playback/audio/tuner_source.h"

#include "playback/tuner_choice.h"

namespace vk {

const TunerKind FMKind = {PlayFM, &Settings::dlink_audio_input, "", false};
const TunerKind XMKind = {PlayXM, &Settings::xmpcr_audio_input,
                          "Please wait while the XM channel list is initialized...", true};

bool TunerSource::SwitchTo() {
    if (!kind_.hasChannels) TakeMode();
    Begin(kind_.hasChannels);
    return true;
}

void TunerSource::TakeMode() {
    c_.audio.PlayMode = kind_.mode;
    TakeTunerList(kind_.mode, c_.base.settings, c_.audio);
}

// The line is silent until the tuner is on its station.
void TunerSource::Begin(bool switches) {
    LineMute& lines = c_.loudness.Lines();
    lines.MuteLine(Input());
    ShowName(switches ? OwnTitle() : c_.audio.ListTitle);
    const Waited started = StartShown();
    if (started == Waited::Ended) { // the user leaves
        if (PowerDown()) lines.RestoreMuteState(Input());
        return;
    }
    if (switches) TakeMode();
    if (started == Waited::Done) return StartPlaying();
    lines.RestoreMuteState(Input());
    c_.clockLine.ShowProblem(NoRadio);
}

Waited TunerSource::StartShown() {
    PlayerView& view = c_.view;
    c_.cover.Hide();
    c_.rows.LoadStations({}, 0); // those of before are not its own
    view.ReDrawList();
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

std::string TunerSource::OwnTitle() const {
    AudioState own;
    TakeTunerList(kind_.mode, c_.base.settings, own);
    return own.ListTitle;
}

void TunerSource::ShowName(const std::string& title) {
    c_.view.ShowListTitle(title);
    c_.view.ShowMediaType(MediaTypeIcon());
}

void TunerSource::StartPlaying() {
    playing_ = true;
    if (!kind_.hasChannels) LoadRows();
    c_.loudness.Lines().MuteLine(Input()); // its start may have put it back
    c_.loudness.Lines().UnMuteLine(Input());
    if (kind_.hasChannels) LoadRows();
    c_.clockLine.Refresh();
}

// A list that was chosen elsewhere, while something else played.
void TunerSource::LoadPlaylist() {
    if (c_.audio.bStartPlaying && !playing_) return Begin(false);
    LoadRows();
}

void TunerSource::GiveWay() {
    playing_ = false;
    c_.loudness.Lines().MuteLine(Input());
    if (PowerDown()) c_.loudness.Lines().RestoreMuteState(Input());
}

void TunerSource::Stop() {
    GiveWay();
    c_.audio.ListTitle.clear(); // it was the tuner's
}

} // namespace vk
