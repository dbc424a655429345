// Frames to the satellite receiver: one at a time, the next when the one before is answered.
#pragma once

#include "platform/clock.h"
#include "platform/serial_port.h"
#include "tuners/xm/output_queue.h"
#include "tuners/xm/xm_state.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vk {

class FrameSender {
  public:
    /// All of it outlives this object.
    struct Needs {
        SerialPort& port;
        const Clock& clock;
        XMLinkState& link;
        Trace trace;
        std::function<void()> failed; ///< the port does not take what is sent
    };
    explicit FrameSender(Needs needs) : n_(std::move(needs)), queue_(n_.trace) {}

    /// Sends a frame when the line is ready, else puts it in the queue, in front or behind. The
    /// frame that turns the receiver off overtakes all and leaves nothing behind it.
    void SendBytes(const std::string& frame, bool prepend);
    /// Sends the foremost of those that wait, if there is one.
    void SendQueued();
    bool Waits() const { return !queue_.Empty(); }
    void ClearQueue() { queue_.Clear(); }
    /// Milliseconds since the last frame went out.
    std::int64_t SinceLast() const { return n_.clock.TickMs() - lastSent_; }

    bool readyToSend = false;
    int initStep = -1;          ///< of the opening, 0 to 3; -1: it is over
    std::int64_t sendTick = -1; ///< when the unanswered frame went out; -1: there is none

  private:
    void EndOpening();
    void Send(const std::string& frame);

    Needs n_;
    OutputQueue queue_;
    std::int64_t lastSent_ = 0;
};

} // namespace vk
