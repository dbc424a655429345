// The way from other threads, which only drivers of vendors start, to the user-interface thread.
#pragma once

#include <functional>

namespace vk {

class UiThread {
  public:
    virtual ~UiThread() = default;
    /// May be called from any thread: `work` runs on the user-interface thread when its events run
    /// next, in the order of the calls.
    virtual void Post(std::function<void()> work) = 0;
};

} // namespace vk
