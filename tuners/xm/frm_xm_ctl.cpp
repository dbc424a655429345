#include "tuners/xm/frm_xm_ctl.h"

#include "library/channels/channel_file.h"
#include "tuners/xm/frames.h"

namespace vk {

namespace {

constexpr std::int16_t DefaultIntervalMs = 140, DefaultTimeoutMs = 4000;
constexpr int PowerDownMs = 2000;
constexpr const char* ReceiveFailed =
    "frmXMCtl.comCTL_OnComm: unrecoverable serial error, abort forced";
constexpr const char* SendFailed =
    "frmXMCtl.SendBytes: unrecoverable serial error attempting to send, abort forced";

std::int16_t OrDefault(std::int16_t value, std::int16_t otherwise) {
    return value > 0 ? value : otherwise;
}

} // namespace

frmXMCtl::frmXMCtl(Needs needs)
    : n_(std::move(needs)), base_(n_.base), comCTL_(*n_.port), inputQueue_(TraceOf()),
      sender_({comCTL_, base_.clock, link_, TraceOf(), [this] { Lost(SendFailed); }}),
      messages_(MessageNeeds()), search_(SearchNeeds()),
      tmrMain_(base_.clock.MakeTimer([this] { tmrMain_Timer(); })) {
    comCTL_.OnComm = [this](int event) { comCTL_OnComm(event); };
}

Trace frmXMCtl::TraceOf() const {
    return {.log = [this](const std::string& text) { base_.log.WriteDebugLog(text); },
            .bytes = [this] { return base_.settings.values.XMDataLogging; }};
}

XMMessages::Needs frmXMCtl::MessageNeeds() {
    return {.base = base_,
            .channels = n_.channels,
            .state = state_,
            .link = link_,
            .sender = sender_,
            .listener = listener,
            .setChannel =
                [this](int channel) {
                    if (!standby_) SetChannel(channel);
                },
            .restoreLine = [this] { n_.line.RestoreMuteState(); },
            .showId =
                [this] {
                    page.ShowId(state_.receiverId);
                    page.ShowStatus("Found XMPCR");
                }};
}

ReceiverSearch::Needs frmXMCtl::SearchNeeds() {
    return {.base = base_,
            .port = comCTL_,
            .sender = sender_,
            .state = state_,
            .link = link_,
            .page = page,
            .ports = n_.ports,
            .clearQueues =
                [this] {
                    inputQueue_.Clear();
                    sender_.ClearQueue();
                },
            .ended = [this](bool found) { SearchEnded(found); }};
}

void frmXMCtl::Form_Load() {
    if (On() || Searching() || dead_ || ending_) return;
    state_ = {};
    link_ = {};
    standby_ = false;
    LoadChannels(base_.settings.File(ChannelFileName), base_.clock.Now(), base_.report,
                 n_.channels);
    ReadSettings();
    n_.line.MuteLine();
    search_.InitReceiver();
}

void frmXMCtl::ReadSettings() {
    state_.commandInterval =
        OrDefault(base_.settings.Get(setting::commandInterval), DefaultIntervalMs);
    state_.responseTimeout = OrDefault(base_.settings.Get(setting::timeout), DefaultTimeoutMs);
    const std::int16_t port = base_.settings.Get(setting::port);
    if (port > 0) page.ShowPort(std::to_string(port));
}

void frmXMCtl::SearchEnded(bool found) {
    if (found) tmrMain_->Start(state_.commandInterval);
    n_.line.RestoreMuteState();
    if (searchEnded) searchEnded(found);
}

// The serial line --------------------------------------------------------------------------------

void frmXMCtl::comCTL_OnComm(int event) {
    if (event == comEventDCB) return Lost(ReceiveFailed);
    if (event == comEventTxFull) return Lost(SendFailed);
    const std::string bytes = comCTL_.Input();
    if (sender_.initStep != -1 || dead_) return;
    inputQueue_.Add(bytes);
    DecodeInputQueue();
}

void frmXMCtl::DecodeInputQueue() {
    const auto payload = inputQueue_.TakeFrame();
    if (!payload) return;
    if (base_.settings.values.XMDataLogging)
        base_.log.WriteDebugLog(std::to_string(Now() - sender_.sendTick) +
                                " ms recv: " + Hex(*payload));
    sender_.sendTick = -1;
    if (payload->size() < 3) return;
    try {
        messages_.ProcessMessage(*payload);
    } catch (const std::exception& error) {
        LogOnce(std::string("error in frmXMCtl.ProcessMessage() ") + error.what());
    }
}

void frmXMCtl::LogOnce(const std::string& error) {
    if (error != lastError_) base_.report.Log(error);
    lastError_ = error;
}

// The timer --------------------------------------------------------------------------------------

void frmXMCtl::tmrMain_Timer() {
    tmrMain_->Stop();
    if (sender_.Waits() && ((sender_.readyToSend && state_.receiverOn) || sender_.initStep > 0))
        sender_.SendQueued();
    if (state_.receiverOn) {
        if (Aborts()) return;
        Poll();
    }
    StepTrackTime();
    if (comCTL_.PortOpen() && !ending_) tmrMain_->Start(state_.commandInterval);
}

// An answer that has been lost is asked for once more; the second time the link is given up.
bool frmXMCtl::Aborts() {
    const std::int64_t timeout = state_.responseTimeout;
    if (sender_.sendTick < 0 || !Before(sender_.sendTick + timeout)) {
        if (Stands()) Retry(false);
        return false;
    }
    if (!link_.retrying) Retry(true);
    if (!Before(sender_.sendTick + 2 * timeout)) return false;
    base_.log.WriteDebugLog("XM receive timeout has occured - aborting");
    dead_ = true;
    if (state_.standbyPending) n_.line.RestoreMuteState(); // nobody else will
    ResetLink(false);
    return true;
}

// What the receiver tells by itself passes for an answer, although the one that was waited for has
// been lost.
bool frmXMCtl::Stands() const {
    const std::int64_t patience = 2 * state_.responseTimeout;
    return (link_.channelChangePending && Before(link_.selectedAt + patience)) ||
           (!sender_.readyToSend && sender_.sendTick < 0 && sender_.SinceLast() > patience);
}

// Without a tuned channel, or while it is idle, the receiver is only asked whether it is there.
void frmXMCtl::Retry(bool first) {
    base_.log.WriteDebugLog("XM receive timeout - clearing queues and retrying");
    link_.retrying = link_.retrying || first;
    ResetLink(true);
    sender_.readyToSend = true;
    if (state_.currentChannel > 0 && !standby_) SetChannel(state_.currentChannel);
    if (sender_.readyToSend) sender_.SendBytes(RequestSignalFrame(), true);
}

void frmXMCtl::Poll() {
    constexpr int SignalMs = 2000, InfoMs = 5000, ScanMs = 4000;
    if (Before(link_.lastSignalPoll + SignalMs)) {
        link_.lastSignalPoll = Now();
        sender_.SendBytes(RequestSignalFrame(), true);
    }
    if (Before(link_.lastInfoPoll + InfoMs) && state_.currentChannel >= 1 &&
        link_.monitorActive == 0) {
        link_.lastInfoPoll = Now();
        sender_.SendBytes(RequestInfoFrame(static_cast<std::uint8_t>(state_.currentChannel)), true);
    }
    if (Before(link_.lastScanTick + ScanMs) && !link_.scanning && !state_.standbyPending) {
        link_.lastScanTick = Now();
        link_.scanning = true;
        sender_.SendBytes(RequestNextFrame(0), false);
        if (base_.settings.values.showXMTime) base_.log.WriteDebugLog("starting channel scan");
    }
}

void frmXMCtl::StepTrackTime() {
    if (!Before(state_.trackTick + 1000) || state_.trackElapsed == 0 ||
        state_.trackElapsed >= state_.trackDuration)
        return;
    ++state_.trackElapsed;
    state_.trackTick = Now();
}

// Channels and power -----------------------------------------------------------------------------

bool frmXMCtl::SetChannel(int channel) {
    if (!On() || state_.signalStatus < 1 || link_.channelChangePending) return false;
    base_.log.WriteDebugLog("requesting xm channel set " + std::to_string(channel));
    if (channel < 0 || channel > ChannelTable::LastChannel) {
        base_.report.Log("error in frmXMCtl.SetChannel() Overflow");
        return false;
    }
    standby_ = false;
    state_.previousChannel = state_.currentChannel;
    link_.monitorActive = -1;
    state_.trackElapsed = state_.trackDuration = 0;
    link_.channelChangePending = true;
    link_.selectedAt = Now();
    sender_.SendBytes(SelectFrame(static_cast<std::uint8_t>(channel)), true);
    return true;
}

void frmXMCtl::SetStandbyXM() {
    if (!On()) return;
    standby_ = state_.standbyPending = true;
    link_.scanning = link_.channelChangePending = false;
    sender_.ClearQueue(); // a selection that still waits would wake it again
    link_.lastScanTick = Now();
    n_.line.MuteLine();
    sender_.SendBytes(PowerOnFrame(), true);
    state_.trackElapsed = state_.trackDuration = 0;
}

void frmXMCtl::ForgetChannel() {
    state_.currentArtist.clear();
    state_.currentTitle.clear();
    state_.currentChannelName.clear();
    state_.currentChannel = 0;
    state_.trackElapsed = state_.trackDuration = 0;
}

void frmXMCtl::PowerDown() {
    if (search_.Running()) search_.Abort();
    if (ending_) return;
    const bool off = !state_.receiverOn && !search_.Running(); // it has said so by itself
    if (dead_ || (off && comCTL_.PortOpen())) return Close();
    if (!state_.receiverOn) return;
    ending_ = true;
    tmrMain_->Stop();
    base_.pump.Until({.what = "the satellite receiver",
                      .done = [this] { return sender_.readyToSend || !state_.receiverOn; },
                      .timeoutMs = state_.responseTimeout});
    if (state_.receiverOn) {
        sender_.readyToSend = true;
        n_.line.MuteLine();
        sender_.SendBytes(PowerOffFrame(), true);
    }
    ForgetChannel();
    SaveAtPowerDown();
    base_.pump.Pause("the satellite receiver's end", PowerDownMs);
    ending_ = false;
    Close();
}

void frmXMCtl::SaveAtPowerDown() {
    state_.signalStatus = 0;
    link_.scanning = link_.directInfoPending = false;
    link_.lastScanTick = link_.lastSignalPoll = state_.trackTick = Now() + state_.responseTimeout;
    inputQueue_.Clear();
    sender_.ClearQueue();
    SaveChannels(base_.settings.File(ChannelFileName), base_.report, n_.channels);
    base_.settings.Write({{setting::timeout, state_.responseTimeout},
                          {setting::commandInterval, state_.commandInterval}});
}

// The line of the sound card is as it was found, whether the receiver has answered or not.
void frmXMCtl::Close() {
    tmrMain_->Stop();
    dead_ = false;
    state_.receiverOn = state_.standbyPending = false;
    state_.signalStatus = 0;
    link_.channelChangePending = false;
    comCTL_.SetRTSEnable(false);
    comCTL_.Close();
    n_.line.RestoreMuteState();
}

void frmXMCtl::ResetLink(bool keepRunning) {
    if (!keepRunning) QuitPlayer();
    inputQueue_.Clear();
    sender_.ClearQueue();
    link_.channelChangePending = link_.scanning = link_.directInfoPending = false;
    link_.lastScanTick = link_.lastSignalPoll = Now() + state_.responseTimeout;
    if (keepRunning) return;
    link_.retrying = false;
    ForgetChannel();
    state_.trackTick = link_.lastScanTick;
    sender_.readyToSend = true;
}

// It may be in the middle of something, and follows that.
void frmXMCtl::QuitPlayer() {
    if (base_.screens.CurrentForm != "playmp3" || !n_.plays()) return;
    base_.commands.Run(Commands::When::Queue, [this] {
        const ScreenOperations* player = base_.screens.Find("playmp3");
        if (player && n_.plays()) player->doquit();
    });
}

// The port has gone: there is nobody to be turned off.
void frmXMCtl::Lost(const char* text) {
    if (search_.Running()) return search_.PortLost();
    if (!state_.receiverOn && !dead_) return;
    base_.log.WriteDebugLog(text);
    const bool on = state_.receiverOn;
    state_.receiverOn = false;
    ResetLink(false);
    if (on) SaveChannels(base_.settings.File(ChannelFileName), base_.report, n_.channels);
    if (!ending_) Close();
}

} // namespace vk
