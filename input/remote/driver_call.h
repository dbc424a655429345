// Calls of a vendor's driver that may take seconds, or hang.
#pragma once

#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace vk {

/// One call, begun at once on a thread of its own. Letting go of it leaves the thread to itself:
/// what the call uses it must keep.
template<class T> class DriverCall {
  public:
    template<class Work> explicit DriverCall(Work work) {
        std::packaged_task<T()> task(std::move(work));
        result_ = task.get_future();
        std::thread(std::move(task)).detach();
    }
    /// Whether it has returned. The first question waits so long for that, the later ones do not.
    bool Done(int patienceMs) {
        const std::chrono::milliseconds wait(std::exchange(asked_, true) ? 0 : patienceMs);
        return result_.wait_for(wait) == std::future_status::ready;
    }
    /// What it gave; waits for it. Once.
    T Take() { return result_.get(); }

  private:
    std::future<T> result_;
    bool asked_ = false;
};

} // namespace vk
