#include "tuners/xm/messages.h"

#include "tuners/xm/frames.h"
#include "tuners/xm/message_fields.h"
#include "tuners/xm/signal_level.h"

namespace vk {

namespace {

constexpr int NotThere = 9, Moved = 2; // what the second and the first status say of a channel

} // namespace

struct XMMessages::Kind {
    int type;
    void (XMMessages::*act)(const Fields&);
    bool answers; ///< to what was sent last: the line is ready again
};

const XMMessages::Kind XMMessages::Kinds[] = {
    {0x80, &XMMessages::PowerOn, true},        {0x81, &XMMessages::PowerOff, true},
    {0x90, &XMMessages::Selected, true},       {0xA2, &XMMessages::TextReport, true},
    {0xA5, &XMMessages::ChannelInfo, true},    {0xB1, &XMMessages::ReceiverId, true},
    {0xC3, &XMMessages::Signal, true},         {0xD0, &XMMessages::Monitored, true},
    {0xD1, &XMMessages::NameTold, false},      {0xD2, &XMMessages::CategoryTold, false},
    {0xD3, &XMMessages::PlayingTold, false},   {0xD4, &XMMessages::LongArtistTold, false},
    {0xD5, &XMMessages::LongTitleTold, false}, {0xD6, &XMMessages::TimeTold, false},
};

void XMMessages::ProcessMessage(std::string_view payload) {
    const Fields fields(payload);
    bool answers = true;
    for (const Kind& kind : Kinds) {
        if (kind.type != fields[0]) continue;
        (this->*kind.act)(fields);
        answers = kind.answers;
    }
    if (!answers) return;
    n_.sender.readyToSend = true;
    n_.link.retrying = false;
}

void XMMessages::PowerOn(const Fields& f) {
    XMState& state = n_.state;
    if (state.standbyPending) {
        state.standbyPending = false;
        return n_.restoreLine(); // it is silent from here on
    }
    state.receiverId = f.Whole(19, 26);
    state.receiverOn = true;
    n_.showId();
    n_.link.lastScanTick = n_.link.lastInfoPoll = n_.link.lastSignalPoll = n_.base.clock.TickMs();
    state.currentChannel = 0;
    if (Trim(state.receiverId).empty()) Send(RequestIdFrame(), false);
    Send(RequestSignalFrame(), true);
    n_.restoreLine();
}

void XMMessages::PowerOff(const Fields& /*none*/) {
    n_.state.receiverOn = false;
    n_.link.channelChangePending = false;
    n_.restoreLine();
}

void XMMessages::Selected(const Fields& f) {
    XMState& state = n_.state;
    n_.link.channelChangePending = false;
    if (f[2] != 0) return n_.setChannel(state.lastChannel == 0 ? 1 : state.lastChannel);
    const int channel = f[4];
    state.currentChannel = state.lastChannel = static_cast<std::int16_t>(channel);
    if (channel < 1) return;
    const auto number = static_cast<std::uint8_t>(channel);
    const XMChannel& entry = Channel(channel);
    if (entry.artist.empty() && entry.title.empty()) {
        state.currentArtist.clear();
        state.currentTitle.clear();
        state.currentChannelName.clear();
        n_.link.lastInfoPoll = n_.base.clock.TickMs();
        Send(RequestInfoFrame(number), true);
    }
    Send(MonitorFrame(number), true);
}

// The second text belongs to the artist's line; the title stays empty.
void XMMessages::TextReport(const Fields& f) {
    if (f[4] != 0) n_.state.currentArtist = Trim(f.Whole(5, 36));
    if (f[41] == 0) return;
    n_.state.currentTitle.clear();
    n_.state.currentArtist += Trim(f.Whole(42, 73));
}

void XMMessages::ReceiverId(const Fields& f) {
    n_.state.receiverId = f.Trimmed(4, 11);
    n_.showId();
}

void XMMessages::Signal(const Fields& f) {
    XMState& state = n_.state;
    state.signalPercent = SignalPercent(SatellitePercent(static_cast<std::uint8_t>(f[24])),
                                        SatellitePercent(static_cast<std::uint8_t>(f[25])),
                                        TerrestrialPercent(f.Word(16)));
    state.signalStatus = static_cast<std::int16_t>(f[3]);
    state.antennaStatus = static_cast<std::int16_t>(f[4]);
    if (n_.listener.SignalReport) n_.listener.SignalReport();
}

void XMMessages::Monitored(const Fields& f) {
    n_.link.monitorActive = static_cast<std::int16_t>(f[1] == 1 ? f[3] : 0);
    if (f[1] != 1) Send(RequestInfoFrame(static_cast<std::uint8_t>(f[1])), true);
}

// The scan
// -----------------------------------------------------------------------------------------

void XMMessages::ChannelInfo(const Fields& f) {
    const int channel = f[3];
    const bool gone = f[2] == NotThere || f[1] == Moved;
    if (channel == 0)
        EndScan();
    else if (gone)
        DropChannel(channel);
    else
        StoreChannel(channel, f);
    if (channel != 0) NextOfScan(channel);
    n_.link.directInfoPending = false;
}

void XMMessages::NextOfScan(int channel) {
    if (n_.link.scanning && !n_.link.directInfoPending)
        Send(RequestNextFrame(static_cast<std::uint8_t>(channel)), false);
}

void XMMessages::EndScan() {
    if (!n_.link.scanning) return;
    n_.link.scanning = false;
    n_.channels.channelListReady = true;
    LogTimes("channel scan completed");
}

namespace {

// The receiver cuts these two names of programmes, which are heard often.
std::string TitleRepair(const std::string& text) {
    if (text == "Ned Varga Tonigh") return text + "t";
    if (text == "The Situation Ro") return text + "om";
    return text;
}

bool Stored(std::string& field, const std::string& text) {
    if (field == text) return false;
    field = text;
    return true;
}

} // namespace

void XMMessages::StoreChannel(int channel, const Fields& f) {
    const std::string artist = TitleRepair(f.Trimmed(41, 56)), title = f.Trimmed(57, 72);
    const std::string name = f.Trimmed(6, 21), category = f.Trimmed(24, 39);
    XMChannel& entry = Channel(channel);
    bool changed = Stored(entry.artist, artist);
    changed |= Stored(entry.title, title);
    changed |= !name.empty() && Stored(entry.name, name);
    entry.lastSeen = n_.base.clock.Now();
    entry.valid = true;
    if (Options().XMDataLogging)
        n_.base.log.WriteDebugLog("got channel info for ch: " + std::to_string(channel));
    if (channel > 1) entry.category = category;
    if (changed && n_.state.currentChannel != 0) ShowChannel(channel, n_.link.directInfoPending);
}

void XMMessages::DropChannel(int channel) {
    Channel(channel) = {};
    if (n_.state.currentChannel != 0 && n_.listener.RemoveChannel)
        n_.listener.RemoveChannel(channel);
    n_.base.log.WriteDebugLog("xm channel " + std::to_string(channel) +
                              " has been moved / removed");
}

void XMMessages::ShowChannel(int channel, bool shown) {
    if (n_.listener.UpdateChanInfo) n_.listener.UpdateChanInfo(channel, shown);
}

void XMMessages::LogTimes(const std::string& text) {
    if (Options().showXMTime) n_.base.log.WriteDebugLog(text);
}

// What the receiver tells of the tuned channel by itself
// -------------------------------------------

// The first word of it stands for the answer that said it would come.
void XMMessages::MonitorTells(const Fields& f) {
    if (n_.link.monitorActive != 0) return;
    n_.sender.readyToSend = true;
    n_.link.monitorActive = static_cast<std::int16_t>(f[1]);
}

void XMMessages::NameTold(const Fields& f) {
    if (f[2] == 0) return;
    MonitorTells(f);
    n_.state.currentChannelName = f.Text(3, 18);
}

void XMMessages::CategoryTold(const Fields& f) {
    if (f[3] != 0) MonitorTells(f);
}

void XMMessages::Told(std::string XMChannel::*field, const std::string& text) {
    if (n_.state.currentChannel == 0) return;
    XMChannel& entry = Channel(n_.state.currentChannel);
    entry.*field = text;
    entry.lastSeen = n_.base.clock.Now();
}

void XMMessages::PlayingTold(const Fields& f) {
    if (f[2] == 0) return;
    XMState& state = n_.state;
    const std::string artist = TitleRepair(f.Trimmed(3, 18)), title = f.Trimmed(19, 34);
    MonitorTells(f);
    state.currentArtist = artist;
    state.currentTitle = title;
    Told(&XMChannel::artist, artist);
    Told(&XMChannel::title, title);
    if (state.currentChannel != 0) ShowChannel(state.currentChannel, true);
}

void XMMessages::LongArtistTold(const Fields& f) {
    if (f[2] == 0) return;
    n_.state.currentArtist = f.Trimmed(3, 35);
    MonitorTells(f);
    Told(&XMChannel::artist, n_.state.currentArtist);
    if (n_.state.currentChannel != 0) ShowChannel(n_.state.currentChannel, true);
    LogTimes("**** extended artist info on chan: " + std::to_string(f[1]));
}

void XMMessages::LongTitleTold(const Fields& f) {
    if (f[2] == 0) return;
    n_.state.currentTitle = f.Trimmed(3, 35);
    MonitorTells(f);
    Told(&XMChannel::title, n_.state.currentTitle);
    if (n_.state.currentChannel != 0) ShowChannel(n_.state.currentChannel, true);
    LogTimes("**** extended title info on channel: " + std::to_string(f[1]));
}

void XMMessages::TimeTold(const Fields& f) {
    if (f[1] == 0) return;
    XMState& state = n_.state;
    const int duration = f.Word(5), elapsed = f.Word(7);
    state.trackElapsed = elapsed;
    state.trackDuration = duration;
    state.trackTick = n_.base.clock.TickMs();
    const XMChannel& entry = Channel(state.currentChannel);
    LogTimes("got track time notification on channel: " + std::to_string(f[1]));
    LogTimes("artist: " + entry.artist + " title: " + entry.title);
    if (Options().showXMTime) n_.base.log.WriteDebugLog(Hex(f.All()));
    MonitorTells(f);
}

} // namespace vk
