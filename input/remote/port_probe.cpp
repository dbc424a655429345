#include "input/remote/port_probe.h"

#include "input/remote/serial_receiver.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

constexpr const char *Irman = "IRMAN", *Creative = "CREATIVE";
constexpr std::size_t LeastBurst = 2; // bytes; a single one is a glitch of the line

} // namespace

PortProbe::PortProbe(std::unique_ptr<SerialPort> port, std::string path, Clock& clock)
    : port_(std::move(port)), path_(std::move(path)), clock_(clock),
      step_(clock.MakeTimer([this] { Step(); })),
      quiet_(clock.MakeTimer([this] { EndOfBurst(); })) {
    port_->OnComm = [this](int commEvent) {
        if (commEvent == comEvReceive) Hear();
    };
    Open(Irman);
    Enter(Stage::PoweringUp, SerialReceiver::PowerUpMs);
}

// One that cannot be opened now gives and hears nothing until its next turn.
void PortProbe::Open(const char* type) {
    quiet_->Stop();
    bytes_.clear();
    last_.clear();
    port_->Close();
    port_->Open(path_, ModelOfType(type).settings, {.owner = "the search for a remote"});
}

void PortProbe::Enter(Stage stage, int milliseconds) {
    stage_ = stage;
    step_->Start(milliseconds);
}

void PortProbe::Step() {
    switch (stage_) {
    case Stage::PoweringUp:
        Enter(Stage::WakingUp, SerialReceiver::WakeUpPauseMs);
        port_->Output("I");
        return;
    case Stage::WakingUp:
        bytes_.clear();
        Enter(Stage::Answering, AnswerMs);
        port_->Output("R");
        return;
    case Stage::Answering:
        Open(Creative);
        return Enter(Stage::Listening, ListenMs);
    case Stage::Listening:
        Open(Irman);
        return Enter(Stage::PoweringUp, SerialReceiver::PowerUpMs);
    }
}

void PortProbe::Hear() {
    while (port_->InBufferCount() > 0)
        bytes_ += port_->Input();
    bytes_.resize(std::min(bytes_.size(), SerialReceiver::MaxBurst + 1));
    if (stage_ == Stage::Answering && bytes_.find("OK") != std::string::npos) type_ = Irman;
    if (stage_ == Stage::Listening) quiet_->Start(ModelOfType(Creative).quietMs);
}

void PortProbe::EndOfBurst() {
    quiet_->Stop();
    const std::string burst = std::exchange(bytes_, {});
    if (burst.size() < LeastBurst || burst.size() > SerialReceiver::MaxBurst) return;
    const std::int64_t since = clock_.TickMs() - std::exchange(lastMs_, clock_.TickMs());
    if (std::exchange(last_, burst) == burst && since < AgainMs) type_ = Creative;
    step_->Start(ListenMs);
}

} // namespace vk
