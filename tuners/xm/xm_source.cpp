#include "tuners/xm/xm_source.h"

#include "core/time_of_day.h"
#include "library/lists/channel_list.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr const char* NoSignal = "-No Signal-";
constexpr const char* NoAntenna = "-Antenna Disconnected-";
constexpr int FirstChannel = 1;

} // namespace

XMSource::XMSource(const SourceContext& context, frmXMCtl& xm, const ChannelTable& channels)
    : TunerSource(context, XMKind), xm_(xm), table_(channels),
      logos_(channels, context.base.settings.AppDir(), context.base.report) {
    xm_.listener = {.UpdateChanInfo = [this](int channel, bool) { UpdateChanInfo(channel); },
                    .RemoveChannel = [this](int channel) { RemoveChannel(channel); },
                    .SignalReport = [this] { SignalReport(); }};
}

XMSource::~XMSource() {
    xm_.listener = {};
}

bool XMSource::CanPlay() {
    if (!xm_.Dead()) return true;
    c_.clockLine.ShowProblem(NoRadio);
    return false;
}

// Starting and ending ----------------------------------------------------------------------------

bool XMSource::Knows() const {
    return !xm_.Searching() && (!xm_.On() || table_.channelListReady);
}

void XMSource::ShowSearch(std::string& shown) {
    const std::string text = xm_.Searching() ? "Searching for XMPCR\n" + xm_.page.lbXMPort
                                             : std::string(XMKind.waitText);
    if (text == shown) return;
    shown = text;
    c_.view.ShowLoading(text);
}

Waited XMSource::Start() {
    if (xm_.Dead()) return Waited::TimedOut;
    xm_.Form_Load();
    std::string shown = XMKind.waitText;
    const Waited waited =
        c_.base.pump.Until({.what = "the satellite receiver's channels", .done = [&] {
                                ShowSearch(shown);
                                return Knows();
                            }});
    noSignal_ = false;
    pictured_ = 0;
    return waited == Waited::Done && !xm_.On() ? Waited::TimedOut : waited;
}

// While it is still looked for, that is enough.
bool XMSource::PowerDown() {
    wanted_ = 0;
    if (xm_.Searching())
        xm_.Form_Unload();
    else if (!xm_.Idle())
        xm_.SetStandbyXM();
    return !xm_.State().standbyPending;
}

void XMSource::Save() {
    const int channel = xm_.State().currentChannel;
    std::vector<SettingChange> changes = {{setting::PresetList, c_.audio.ListFile},
                                          {setting::ListTitle, c_.audio.ListTitle}};
    if (channel > 0) changes.emplace_back(setting::CurrentChannel, channel);
    c_.base.settings.Write(changes);
}

// The list ---------------------------------------------------------------------------------------

void XMSource::ReadChannels() {
    channels_.clear();
    TrapAndLog(c_.base.report, "Error occured in Playmp3.LoadPlaylist ", [&] {
        if (!c_.audio.ListFile.empty()) channels_ = ReadChannelList(c_.audio.ListFile);
    });
    if (channels_.empty()) channels_ = table_.Channels();
}

const XMChannel& XMSource::Entry(int channel) const {
    return table_.channelTable.at(static_cast<std::size_t>(channel));
}

// "12 - Name - Artist - Title", the last two on the row's right.
Track XMSource::Row(int channel) const {
    const XMChannel& entry = Entry(channel);
    const std::string number = std::to_string(channel);
    const bool plain = c_.base.settings.values.hideXMChanNo && !entry.name.empty();
    const bool silent = entry.artist.empty() && entry.title.empty();
    const bool both = !entry.artist.empty() && !entry.title.empty();
    return {.path = number,
            .artist = plain                ? entry.name
                      : entry.name.empty() ? number
                                           : number + " - " + entry.name,
            .title = silent ? "No Data" : entry.artist + (both ? " - " : "") + entry.title,
            .tagged = true,
            .station = true};
}

void XMSource::LoadRows() {
    ReadChannels();
    const int channel = Wanted();
    std::vector<Track> rows;
    for (const int number : channels_)
        rows.push_back(Row(number));
    c_.rows.LoadStations(std::move(rows), std::max(0, IndexOf(channel)));
    c_.rows.Select(IndexOf(channel));
    c_.view.ReDrawList();
    if (c_.audio.bStartPlaying || xm_.State().currentChannel == 0 || xm_.Idle()) Want(channel);
    c_.audio.bStartPlaying = false;
    UpdateScreen();
}

std::int32_t XMSource::IndexOf(int channel) const {
    const auto at = std::ranges::find(channels_, channel);
    return at == channels_.end() ? -1 : static_cast<std::int32_t>(at - channels_.begin());
}

// What the browser asks for counts once; later the channel that plays, else the saved one.
int XMSource::Wanted() {
    int channel =
        c_.audio.bStartPlaying ? std::exchange(c_.audio.CurrentChannel, std::int16_t{0}) : 0;
    if (channel == 0 && !xm_.Idle()) channel = xm_.State().currentChannel;
    if (channel == 0) channel = c_.base.settings.Get(setting::CurrentChannel);
    if (channel == 0) channel = xm_.State().lastChannel;
    return IsChannelNumber(channel) ? channel : FirstChannel;
}

void XMSource::Want(int channel) {
    wanted_ = channel;
    TryWanted();
}

// Without a signal the receiver takes none: the next report of it tries again.
void XMSource::TryWanted() {
    if (wanted_ != 0 && xm_.SetChannel(wanted_)) wanted_ = 0;
}

void XMSource::runok() {
    const auto selected = static_cast<std::size_t>(c_.rows.Selected());
    if (selected >= channels_.size()) return;
    Want(channels_[selected]);
}

void XMSource::Skip(int by) {
    const auto count = static_cast<std::int32_t>(channels_.size());
    if (count == 0) return;
    c_.rows.Select((c_.rows.Selected() + by + count) % count);
    c_.view.ReDrawList();
    runok();
}

Favorite XMSource::SelectedFavorite() {
    const auto selected = static_cast<std::size_t>(c_.rows.Selected());
    return selected < channels_.size() ? XMFavorite(channels_[selected]) : Favorite{};
}

// What the receiver tells ------------------------------------------------------------------------

void XMSource::UpdateChanInfo(int channel) {
    if (!Plays()) return;
    const std::int32_t index = IndexOf(channel);
    if (index >= 0) c_.rows.Replace(index, Row(channel));
    if (index >= 0) c_.view.ReDrawList();
    if (channel == xm_.State().currentChannel) UpdateScreen();
}

void XMSource::RemoveChannel(int channel) {
    const std::int32_t index = IndexOf(channel);
    if (!Plays() || index < 0) return;
    const std::int32_t selected = c_.rows.Selected();
    channels_.erase(channels_.begin() + index);
    std::vector<Track> rows;
    for (const int number : channels_)
        rows.push_back(Row(number));
    c_.rows.LoadStations(std::move(rows), selected > index ? selected - 1 : selected);
    c_.view.ReDrawList();
}

void XMSource::SignalReport() {
    if (!Plays() || c_.base.screens.CurrentForm == "settingsFMXM") return;
    const XMState& state = xm_.State();
    LineMute& lines = c_.loudness.Lines();
    if (state.signalStatus < 1 && !noSignal_) {
        noSignal_ = true;
        lines.MuteLine(Input());
        c_.view.ShowArtist(state.antennaStatus != 0 ? NoSignal : NoAntenna);
    } else if (state.signalStatus >= 1 && noSignal_) {
        noSignal_ = false;
        lines.UnMuteLine(Input());
        c_.view.ShowArtist(state.currentArtist);
    }
    TryWanted();
}

// What is shown ----------------------------------------------------------------------------------

void XMSource::UpdateScreen() {
    const XMState& state = xm_.State();
    if (!noSignal_) c_.view.ShowArtist(state.currentArtist);
    c_.view.ShowTitle(state.currentTitle);
    ShowTrackTime();
    if (pictured_ == state.currentChannel) return;
    pictured_ = state.currentChannel;
    if (pictured_ == 0) return c_.cover.Hide();
    Save(); // in a car the power goes without a word
    c_.rows.Select(IndexOf(pictured_));
    c_.cover.ShowPicture(logos_.GetXMLogo(pictured_));
}

void XMSource::ShowTrackTime() {
    const XMState& state = xm_.State();
    if (state.trackDuration <= 0) return c_.view.ShowTrackTime("");
    const bool elapsed = c_.base.settings.values.ShowElapsedTime;
    c_.view.ShowTrackTime(
        "TrackTime: " +
        SetTimeFormat(elapsed ? state.trackElapsed : state.trackDuration - state.trackElapsed));
}

NowPlaying XMSource::Now() {
    const XMState& state = xm_.State();
    return {.title = state.currentTitle,
            .artist = state.currentArtist,
            .position = state.trackDuration > 0 ? state.trackElapsed : -1,
            .playing = xm_.On() && state.currentChannel > 0};
}

} // namespace vk
