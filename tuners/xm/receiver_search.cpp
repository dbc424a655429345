#include "tuners/xm/receiver_search.h"

#include "tuners/xm/frames.h"

#include <algorithm>

namespace vk {

namespace {

constexpr int StepMs = 1;
constexpr std::int16_t LastPort = 16; // the walk ends before it
constexpr int PowerOnStep = 3;
constexpr int ScanAfterMs = 2000;
constexpr const char* LineSettings = "9600,N,8,1";

} // namespace

ReceiverSearch::ReceiverSearch(Needs needs)
    : n_(std::move(needs)), timer_(n_.base.clock.MakeTimer([this] { Run(); })) {}

const ListedSerialPort& ReceiverSearch::Listed() const {
    static const ListedSerialPort none;
    const auto at = static_cast<std::size_t>(n_.state.comPort) - 1;
    return at < list_.size() ? list_[at] : none;
}

std::string ReceiverSearch::Named(const char* between) const {
    return Listed().name + between + "(COM" + Number() + ")";
}

void ReceiverSearch::InitReceiver() {
    list_ = n_.ports();
    abort_ = false;
    n_.clearQueues();
    ChoosePort();
    step_ = Step::TryPort;
    timer_->Start(StepMs);
}

// A number may stand for another device by now: the saved name tells.
void ReceiverSearch::ChoosePort() {
    n_.state.comPort = n_.base.settings.Get(setting::port);
    const std::string name = n_.base.settings.Get(setting::portname);
    searching_ = n_.state.comPort <= 0;
    if (!searching_ && !name.empty() && Listed().name != name) {
        const auto moved = std::ranges::find(list_, name, &ListedSerialPort::name);
        searching_ = moved == list_.end();
        const std::string told = "COM" + Number() + " is not " + name + " any more";
        n_.base.log.WriteDebugLog("xm port: " + told);
        n_.page.ShowStatus(told);
        if (!searching_) n_.state.comPort = static_cast<std::int16_t>(moved - list_.begin() + 1);
    } else if (searching_) {
        n_.page.ShowStatus("Searching for XMPCR");
        n_.page.ShowId("");
    }
    if (searching_) n_.state.comPort = 1;
}

void ReceiverSearch::Run() {
    if (step_ == Step::TryPort) return TryPort();
    if (step_ == Step::Wait) return WaitForAnswer();
    if (Now() - startMs_ < n_.state.commandInterval && !abort_) return;
    if (!searching_) { // so that the next port is COM2
        searching_ = true;
        n_.state.comPort = 1;
    }
    NextPort();
}

void ReceiverSearch::TryPort() {
    if (n_.state.receiverOn || abort_) return End(n_.state.receiverOn);
    if (Listed().name.empty()) return NextPort();
    n_.clearQueues();
    n_.sender.initStep = 0;
    lost_ = false;
    n_.page.ShowPort(Number());
    n_.page.ShowStatus(searching_ ? "Searching for XMPCR" : "Initializing XMPCR");
    n_.page.ShowId("");
    n_.base.log.WriteDebugLog(searching_ ? "searching: " + Named("") + " for xmpcr"
                                         : "sending init command to: " + Named(""));
    startMs_ = Now();
    if (!Open()) return NotOpened();
    n_.sender.readyToSend = true;
    n_.state.receiverOn = n_.link.channelChangePending = false;
    step_ = Step::Wait;
}

bool ReceiverSearch::Open() {
    return n_.port.Open(Listed().path, LineSettings,
                        {.owner = "the satellite receiver", .dtr = false, .rts = false});
}

void ReceiverSearch::NotOpened() {
    n_.port.Close();
    n_.page.ShowStatus("COM" + Number() + " in use");
    n_.base.log.WriteDebugLog("error opening port: " + Listed().name +
                              " while searching for xmpcr");
    step_ = Step::Pause;
}

void ReceiverSearch::WaitForAnswer() {
    if (n_.state.receiverOn) return Found();
    const std::int64_t left = startMs_ + n_.state.responseTimeout - Now();
    if (left < 0 || abort_ || lost_) return TimedOut();
    n_.page.ShowStatus("waiting for power on response: " + std::to_string(left) + "ms");
    SendOpening();
}

// A frame an interval; nothing answers before the last one.
void ReceiverSearch::SendOpening() {
    const int step = n_.sender.initStep;
    if (step == -1 || startMs_ + step * n_.state.commandInterval >= Now()) return;
    n_.sender.readyToSend = true;
    n_.sender.SendBytes(step == PowerOnStep ? PowerOnFrame() : OpeningFrame(step), false);
}

void ReceiverSearch::TimedOut() {
    const std::string told = "response timeout on port: " + Named(" ");
    n_.base.log.WriteDebugLog(told);
    n_.page.ShowStatus(told);
    if (!searching_)
        n_.base.log.WriteDebugLog("xm port value from settings invalid, scanning for receiver");
    n_.port.Close();
    NextPort();
}

void ReceiverSearch::NextPort() {
    if (!searching_) n_.state.comPort = 0;
    searching_ = true;
    ++n_.state.comPort;
    step_ = Step::TryPort;
    if (n_.state.comPort < LastPort) return;
    n_.page.ShowStatus("No XMPCR Found");
    n_.page.ShowPort("");
    End(false);
}

void ReceiverSearch::Found() {
    n_.link.lastScanTick = Now() + ScanAfterMs;
    n_.base.settings.Write({{setting::port, n_.state.comPort}, {setting::portname, Listed().name}});
    n_.base.log.WriteDebugLog("XM PowerOn response on: " + Named(""));
    n_.page.ShowPort(Number());
    n_.page.ShowStatus("XM PowerOn response returned");
    End(true);
}

void ReceiverSearch::End(bool found) {
    timer_->Stop();
    step_ = Step::None;
    searching_ = false;
    n_.sender.initStep = -1;
    n_.ended(found);
}

} // namespace vk
