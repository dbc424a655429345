#include "input/remote/remote.h"

#include "core/text.h"
#include "input/remote/lirc_receiver.h"
#include "input/remote/serial_receiver.h"
#include "input/remote/uuirt_receiver.h"
#include "input/remote/x10_receiver.h"

#include <cmath>
#include <utility>

namespace vk {

namespace {

// This driver hands over codes a little slower than they are sent.
constexpr float UuirtSpeedFactor = 0.9F;
constexpr std::size_t LearnDigits = 4;

} // namespace

Remote::Remote(Needs needs) : n_(std::move(needs)), base_(n_.base) {}

Remote::~Remote() = default;

bool Remote::InitRemote() {
    CloseRemote();
    if (!base_.settings.values.remoteStatus) return false;
    const std::string type = ToUpper(base_.settings.Get(setting::remoteType));
    speedFactor_ = type == "USBUIRT" ? UuirtSpeedFactor : 1;
    receiver_ = MakeReceiver(type);
    receiver_->onCode = [this, from = receiver_.get()](const std::string& code) {
        if (from == receiver_.get()) Received(code);
    };
    return receiver_->Start();
}

void Remote::CloseRemote() {
    if (telling_ == 0) retired_.clear();
    if (!receiver_) return;
    receiver_->Stop();
    retired_.push_back(std::move(receiver_));
}

void Remote::ClearBuff() {
    if (receiver_) receiver_->ClearBuff();
}

std::unique_ptr<RemoteReceiver> Remote::MakeReceiver(const std::string& type) {
    if (type == "USBUIRT") return MakeUuirt();
    if (type == "X10") return std::make_unique<X10Receiver>(n_.devices.x10);
    if (type == "LIRC") return MakeLirc();
    return MakeSerial(type);
}

std::unique_ptr<RemoteReceiver> Remote::MakeSerial(const std::string& type) {
    return std::make_unique<SerialReceiver>(SerialReceiver::Needs{
        .port = n_.devices.serial(),
        .device = SerialPortName(std::string_view(base_.settings.Text(setting::comport))),
        .model = ModelOfType(type),
        .clock = base_.clock,
        .log = base_.log});
}

std::unique_ptr<RemoteReceiver> Remote::MakeLirc() {
    std::string socket = base_.settings.Get(setting::lircsocket);
    if (socket.empty()) socket = n_.devices.lircSocket;
    return std::make_unique<LircReceiver>(n_.devices.stream(),
                                          socket.empty() ? LircSockets : std::vector{socket},
                                          base_.clock, base_.log);
}

std::unique_ptr<RemoteReceiver> Remote::MakeUuirt() {
    return std::make_unique<UuirtReceiver>(
        UuirtReceiver::Needs{.load = n_.devices.uuirt,
                             .clock = base_.clock,
                             .log = base_.log,
                             .dialogs = base_.dialogs,
                             .patienceMs = n_.devices.uuirtPatienceMs,
                             .mayTell = [this] { return Idle(); },
                             .ui = n_.ui});
}

bool Remote::Idle() const {
    return base_.screens.Current() && !base_.commands.ListBusy() && !base_.pump.Waiting();
}

void Remote::Received(const std::string& code) {
    const Heard heard = Filtered(code);
    if (!base_.settings.values.remoteStatus) return;
    if (heard == Heard::Dropped) {
        if (IRHeld) IRHeld(code);
        return;
    }
    RunCommand(code, heard == Heard::Repeat);
    ClearBuff();
    filter_.Resume(base_.clock.Now().SecondsOfDay());
}

Heard Remote::Filtered(const std::string& code) {
    const double now = base_.clock.Now().SecondsOfDay();
    if (!learn.empty()) return filter_.Note(code, now);
    const Settings& s = base_.settings.values;
    const float speed = static_cast<float>(s.speed) / 1000 * speedFactor_;
    const float delay = s.UseDelay ? static_cast<float>(s.delay) / 1000 : 0;
    return filter_.Accept(code, now, {speed, delay});
}

void Remote::RunCommand(const std::string& code, bool repeat) {
    const auto first = firstLook;
    const auto command = IRCommand;
    ++telling_;
    TrapAndLog(base_.report, "An error occured in astart.IRCommand ", [&] {
        if ((!first || !first(code, repeat)) && command) command(code, repeat);
    });
    --telling_;
}

std::string Remote::LearnText() const {
    if (!(learnInterval > 0)) return "0";
    return std::to_string(std::lround(learnInterval * 1000)).substr(0, LearnDigits);
}

} // namespace vk
