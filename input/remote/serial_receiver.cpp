#include "input/remote/serial_receiver.h"

#include <utility>

namespace vk {

SerialReceiverModel ModelOfType(std::string_view type) {
    // A byte takes 4.2 ms at 2400 baud, 1.04 ms at 9600.
    if (type == "CREATIVE") return {"2400,n,8,1", false, 7};
    return {"9600,n,8,1", true, 4};
}

std::string CodeText(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes)
        text += std::to_string(static_cast<unsigned char>(byte));
    return text;
}

SerialReceiver::SerialReceiver(Needs needs)
    : n_(std::move(needs)), step_(n_.clock.MakeTimer([this] { WakeUpStep(); })),
      quiet_(n_.clock.MakeTimer([this] { EndOfBurst(); })),
      link_(
          n_.clock, n_.log, n_.device, [this] { return Open(); },
          [this] { return n_.port->Failure(); }) {
    n_.port->OnComm = [this](int commEvent) { MSComm1_OnComm(commEvent); };
}

bool SerialReceiver::Start() {
    return link_.Start();
}

void SerialReceiver::Stop() {
    link_.Stop();
    step_->Stop();
    quiet_->Stop();
    stage_ = Stage::Closed;
    n_.port->Close();
}

bool SerialReceiver::Open() {
    if (!n_.port->Open(n_.device, n_.model.settings, {.owner = "the remote"})) return false;
    stage_ = n_.model.wakeUp ? Stage::PoweringUp : Stage::Listening;
    if (n_.model.wakeUp) step_->Start(PowerUpMs);
    ClearBuff();
    return true;
}

void SerialReceiver::WakeUpStep() {
    switch (stage_) {
    case Stage::PoweringUp:
        n_.port->Output("I");
        stage_ = Stage::WakingUp;
        return step_->Start(WakeUpPauseMs);
    case Stage::WakingUp:
        n_.port->Output("R");
        stage_ = Stage::Answering;
        return step_->Start(AnswerMs);
    default:
        step_->Stop();
        stage_ = Stage::Listening;
        return ClearBuff();
    }
}

void SerialReceiver::MSComm1_OnComm(int commEvent) {
    if (commEvent == comEvReceive) return Receive();
    if (commEvent < comEventBreak) return;
    n_.log.WriteDebugLog("Remote: CommEvent " + std::to_string(commEvent));
    if (commEvent != comEventDCB) return;
    Stop();
    link_.Lost();
}

void SerialReceiver::Receive() {
    while (n_.port->InBufferCount() > 0)
        irBuffer += n_.port->Input();
    if (irBuffer.size() > MaxBurst || stage_ != Stage::Listening) skipBurst_ = true;
    if (skipBurst_) irBuffer.clear();
    quiet_->Start(n_.model.quietMs);
}

// Bytes that wait are received before timers run, so a late tick does not cut a burst.
void SerialReceiver::EndOfBurst() {
    quiet_->Stop();
    skipBurst_ = false;
    const std::string code = CodeText(std::exchange(irBuffer, {}));
    if (code.empty()) return;
    link_.Works();
    if (onCode) onCode(code);
}

void SerialReceiver::ClearBuff() {
    if (!n_.port->PortOpen()) return;
    n_.port->ClearInput();
    irBuffer.clear();
    skipBurst_ = true;
    quiet_->Start(n_.model.quietMs);
}

} // namespace vk
