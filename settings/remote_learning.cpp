#include "settings/remote_learning.h"

#include "core/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <utility>

namespace vk {

namespace {

constexpr const char* RemoteFile = "keys.ini";
constexpr std::size_t LongestList = 200;
constexpr int Ports = 16;
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
    "btnIReject",    "btnIRresume",   "btnIRapps"};

} // namespace

const char* RemoteButton(Action action) {
    return Buttons[static_cast<std::size_t>(action)];
}

RemoteLearning::RemoteLearning(Needs needs)
    : n_(std::move(needs)), limit_(n_.clock.MakeTimer([this] { TimeOut(); })) {}

void RemoteLearning::Enter() {
    codes_ = ReadRemoteMap(n_.settings.ini(), n_.settings.File(RemoteFile));
    Disarm();
    n_.collect(true);
}

void RemoteLearning::Leave() {
    Disarm();
    n_.collect(false);
    n_.codes = ReadRemoteMap(n_.settings.ini(), n_.settings.File(RemoteFile));
}

bool RemoteLearning::Received(const std::string& code, bool held) {
    const std::int64_t gap = n_.clock.TickMs() - std::exchange(lastMs_, n_.clock.TickMs());
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
    Trap(n_.report, where + RemoteButton(action) + "_Click ", [&] {
        if (!WriteRemoteKey(n_.settings.ini(), n_.settings.File(RemoteFile), action, code))
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
    n_.settings.Set(setting::speed, static_cast<std::int16_t>(interval * SpeedPercent / 100));
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
    const bool sure = n_.dialogs.AskNoYes("Remove the codes of all buttons?", "Reset Remote");
    n_.collect(true);
    if (!sure) return;
    Trap(n_.report, "An error occured in settingsRemote.btnIRresetIRbtns_Click ", [&] {
        for (const ActionNames& names : Actions)
            if (!codes_[names.action].empty() &&
                WriteRemoteKey(n_.settings.ini(), n_.settings.File(RemoteFile), names.action, ""))
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
    n_.settings.Set(setting::remoteStatus, on);
    Reopen();
}

void RemoteLearning::UseRepeatDelay(bool on) {
    n_.settings.Set(setting::UseDelay, on);
}

std::string RemoteLearning::Type() const {
    const std::string type = n_.settings.Get(setting::remoteType);
    return type.empty() ? Types.front() : ToUpper(type);
}

std::string RemoteLearning::Obstacle() const {
    if (!Values().remoteStatus) return "The remote is disabled: no code can be learnt";
    return n_.ready() ? "" : "The receiver is not there yet: no code can be learnt";
}

std::string RemoteLearning::Port() const {
    return n_.settings.Text(setting::comport);
}

void RemoteLearning::StepType(int step) {
    const auto found = std::ranges::find(Types, Type());
    const auto count = static_cast<int>(Types.size());
    const int at = found == Types.end() ? 0 : static_cast<int>(found - Types.begin()) + step;
    n_.settings.Set(setting::remoteType, Types[static_cast<std::size_t>((at + count) % count)]);
    Reopen();
}

// A port that is given by its path counts as 0.
void RemoteLearning::StepPort(int step) {
    const std::string text = Port();
    int port = 0;
    std::from_chars(text.data(), text.data() + text.size(), port);
    port = std::clamp(port + step, 1, Ports);
    n_.settings.Set(setting::comport, static_cast<std::int16_t>(port));
    Reopen();
}

void RemoteLearning::Reopen() {
    if (!n_.initRemote() && Values().remoteStatus) Add("The receiver was not found");
}

} // namespace vk
