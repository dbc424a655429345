// Events from other threads, brought to the thread that polls.
#pragma once

#include "platform/linux/descriptor.h"
#include "player/engine/output.h"

#include <mutex>
#include <vector>

namespace vk {

class EventQueue {
  public:
    EventQueue();
    /// From any thread; never waits.
    void Post(const OutputEvent& event);
    /// Everything posted since the last call, in order.
    std::vector<OutputEvent> Take();
    /// Readable while something is posted.
    const FileDescriptor& Readable() const { return signal_; }

  private:
    std::mutex mutex_;
    std::vector<OutputEvent> events_;
    FileDescriptor signal_;
};

} // namespace vk
