#include "tuners/xm/frame_sender.h"

#include "tuners/xm/frames.h"

namespace vk {

namespace {

constexpr int LastOpeningStep = 3;
constexpr std::uint8_t Info = 0x25, OfOneChannel = 0x08, Opening = 0x74;

} // namespace

// The power-on frame closes the opening before it goes out.
void FrameSender::EndOpening() {
    if (initStep == LastOpeningStep) initStep = -1;
}

void FrameSender::SendBytes(const std::string& frame, bool prepend) {
    EndOpening();
    if (readyToSend) return Send(frame);
    if (frame != PowerOffFrame()) return queue_.Put(frame, prepend);
    queue_.Clear();
    Send(frame);
}

void FrameSender::SendQueued() {
    EndOpening();
    if (!queue_.Empty()) Send(queue_.Take());
}

void FrameSender::Send(const std::string& frame) {
    if (n_.trace.Bytes()) n_.trace.Log("sendbytes: " + Hex(frame));
    const auto command = PayloadByte(frame, 0);
    if (command == Info && PayloadByte(frame, 1) == OfOneChannel) n_.link.directInfoPending = true;
    if (command == Opening) ++initStep;
    n_.port.SetDTREnable(true);
    const bool taken = n_.port.Output(frame);
    sendTick = lastSent_ = n_.clock.TickMs();
    readyToSend = false;
    if (!taken && n_.failed) n_.failed();
}

} // namespace vk
