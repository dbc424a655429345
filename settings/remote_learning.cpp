#include "settings/remote_learning.h"

#include "core/text.h"
#include "platform/serial_port.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

namespace vk {

namespace {

constexpr const char* RemoteFile = "keys.ini";
constexpr std::size_t LongestList = 200;
constexpr const char* Canceled = "Key Programming Canceled";
// A pause that comes out a little shorter than measured must not be dropped.
constexpr int SpeedPercent = 90;

constexpr std::array Types = {"IRMAN", "CREATIVE", "USBUIRT", "X10", "LIRC"};

// In the order of the actions.
constexpr std::array<const char*, ActionCount> Buttons = {
    "btnIRShowGPS",  "btnIRMP3Radio", "btnIRmute",    "btnIRok",          "btnIRquit",
    "btnIRvup",      "btnIRvdown",    "btnIRforward", "btnIRback",        "btnIRup",
    "btnIRdown",     "btnIRswmp",     "btnIRshuffle", "btnIRstartvis",    "btnIRpageup",
    "btnIRpagedown", "btnIRplay",     "btnIRpause",   "btnIRfastforward", "btnIRrewind",
    "btnIRsearch",   "btnIRaddfav",   "btnIRnextvis", "btnIRpower",       "btnIRtracktime",
    "btnIReject",    "btnIRresume",   "btnIRapps",    "btnIRdim"};

using NamedPort = std::pair<std::string, std::string>;

// The serial ports of the machine, and the configured one where it is not among them.
std::vector<NamedPort> NamedPorts(const SerialList& list, const std::string& configured) {
    std::vector<NamedPort> ports;
    for (std::size_t i = 0; i < list.size(); ++i)
        if (!list[i].name.empty()) ports.emplace_back(SerialSetting(list, i), list[i].name);
    if (std::ranges::find(ports, configured, &NamedPort::first) == ports.end())
        ports.insert(ports.begin(), {configured, SerialPortName(std::string_view(configured))});
    return ports;
}

// The place after one step, round and round; 0 for what is not there.
std::size_t Stepped(const std::vector<std::string>& all, const std::string& value, int step) {
    const auto at = std::ranges::find(all, value);
    const auto count = static_cast<int>(all.size());
    if (at == all.end()) return 0;
    return static_cast<std::size_t>((static_cast<int>(at - all.begin()) + step + count) % count);
}

} // namespace

const char* RemoteButton(Action action) {
    return Buttons[static_cast<std::size_t>(action)];
}

RemoteLearning::RemoteLearning(Needs needs)
    : n_(std::move(needs)), limit_(n_.base.clock.MakeTimer([this] { TimeOut(); })) {}

void RemoteLearning::Enter() {
    codes_ = ReadRemoteMap(n_.base.settings.ini(), n_.base.settings.File(RemoteFile));
    shown_ = Stored();
    ports_ = NamedPorts(n_.ports(), shown_.port);
    Disarm();
    n_.collect(true);
}

void RemoteLearning::Leave() {
    Disarm();
    Choose();
    n_.collect(false);
    n_.codes = ReadRemoteMap(n_.base.settings.ini(), n_.base.settings.File(RemoteFile));
}

bool RemoteLearning::Received(const std::string& code, bool held) {
    const std::int64_t gap =
        n_.base.clock.TickMs() - std::exchange(lastMs_, n_.base.clock.TickMs());
    if (!held) { // of a held one the list would show nothing else
        Add(code);
        n_.beeper.Beep();
    }
    if (Measuring()) {
        if (held) Measure(gap);
        return false;
    }
    if (held) return false;
    if (!armed_) return true;
    const Action action = *armed_;
    Disarm();
    Program(action, code);
    return false;
}

void RemoteLearning::Disarm() {
    limit_->Stop();
    armed_.reset();
    measured_ = -1;
}

void RemoteLearning::TimeOut() {
    Add(Measuring() ? "No held button was heard" : Canceled);
    Disarm();
    if (onTimeOut) onTimeOut();
}

void RemoteLearning::Program(Action action, const std::string& code) {
    const std::string key = NamesOf(action).remote;
    const std::string where = "An error occured in settingsRemote.";
    Trap(n_.base.report, where + RemoteButton(action) + "_Click ", [&] {
        if (!WriteRemoteKey(n_.base.settings.ini(), n_.base.settings.File(RemoteFile), action,
                            code))
            return Add(std::string(RemoteFile) + " could not be written");
        codes_[action] = code;
        Add(key + " has been programmed to keycode " + code);
    });
}

void RemoteLearning::Measure(std::int64_t gapMs) {
    measuredMs_ += gapMs;
    if (++measured_ < MeasuredGaps) return;
    Disarm();
    const auto interval = static_cast<int>(measuredMs_ / MeasuredGaps);
    n_.setInterval(static_cast<float>(interval) / 1000);
    n_.base.settings.Set(setting::speed, static_cast<std::int16_t>(interval * SpeedPercent / 100));
    Add("Codes of a held button come every " + std::to_string(interval) + " ms");
}

void RemoteLearning::Add(const std::string& line) {
    if (list_.size() >= LongestList) list_.erase(list_.begin());
    list_.push_back(line);
}

void RemoteLearning::Arm(Action action) {
    const bool again = armed_ == action;
    Disarm();
    if (again) return Add(Canceled);
    armed_ = action;
    limit_->Start(WaitMs);
}

void RemoteLearning::ResetCodes() {
    Disarm();
    n_.collect(false); // the codes that answer are filtered: the button is still held
    const bool sure = n_.base.dialogs.AskNoYes("Remove the codes of all buttons?", "Reset Remote");
    n_.collect(true);
    if (!sure) return;
    Trap(n_.base.report, "An error occured in settingsRemote.btnIRresetIRbtns_Click ", [&] {
        for (const ActionNames& names : Actions)
            if (!codes_[names.action].empty() &&
                WriteRemoteKey(n_.base.settings.ini(), n_.base.settings.File(RemoteFile),
                               names.action, ""))
                codes_[names.action].clear();
    });
}

void RemoteLearning::ClearList() {
    list_.clear();
}

void RemoteLearning::FixRepeat() {
    Disarm();
    measured_ = 0;
    measuredMs_ = 0;
    limit_->Start(MeasureMs);
    Add("Hold a button of the remote");
}

void RemoteLearning::Enable(bool on) {
    n_.base.settings.Set(setting::remoteStatus, on);
    Chosen() ? Reopen() : Choose();
}

void RemoteLearning::UseRepeatDelay(bool on) {
    n_.base.settings.Set(setting::UseDelay, on);
}

std::string RemoteLearning::Obstacle() const {
    if (!Values().remoteStatus) return "The remote is disabled: no code can be learnt";
    return n_.ready() ? "" : "The receiver is not there yet: no code can be learnt";
}

std::string RemoteLearning::Port() const {
    const auto named = std::ranges::find(ports_, shown_.port, &NamedPort::first);
    return named == ports_.end() ? shown_.port : named->second;
}

RemoteLearning::Receiver RemoteLearning::Stored() const {
    const std::string type = n_.base.settings.Get(setting::remoteType);
    return {type.empty() ? Types.front() : ToUpper(type), n_.base.settings.Text(setting::comport)};
}

bool RemoteLearning::Chosen() const {
    return shown_ == Stored();
}

void RemoteLearning::StepType(int step) {
    const std::vector<std::string> types(Types.begin(), Types.end());
    shown_.type = types[Stepped(types, shown_.type, step)];
}

void RemoteLearning::StepPort(int step) {
    std::vector<std::string> ports;
    for (const NamedPort& port : ports_)
        ports.push_back(port.first);
    shown_.port = ports[Stepped(ports, shown_.port, step)];
}

void RemoteLearning::Choose() {
    if (Chosen()) return;
    SettingsStore& settings = n_.base.settings;
    settings.Write("remote", setting::comport.Key(), shown_.port);
    settings.Set(setting::remoteType, shown_.type);
    Reopen();
}

void RemoteLearning::Reopen() {
    if (!n_.initRemote() && Values().remoteStatus) Add("The receiver was not found");
}

} // namespace vk
