#include "player/engine/event_queue.h"

#include <sys/eventfd.h>

#include <utility>

namespace vk {

EventQueue::EventQueue() : signal_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void EventQueue::Post(const OutputEvent& event) {
    const std::lock_guard lock(mutex_);
    events_.push_back(event);
    ::eventfd_write(signal_.get(), 1);
}

std::vector<OutputEvent> EventQueue::Take() {
    const std::lock_guard lock(mutex_);
    eventfd_t ignored = 0;
    ::eventfd_read(signal_.get(), &ignored);
    return std::exchange(events_, {});
}

} // namespace vk
