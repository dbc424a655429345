// The library of films without a window: what it posts is run by who waits.
#pragma once

#include "platform/film_library.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>

namespace vk::test {

class FilmLoop : public UiThread {
  public:
    void Post(std::function<void()> work) override {
        const std::lock_guard lock(mutex_);
        pending_.push_back(std::move(work));
        came_.notify_one();
    }
    /// Runs what is posted until `seen`; false when that does not come.
    bool Until(const std::function<bool()>& seen,
               std::chrono::milliseconds patience = std::chrono::seconds(20)) {
        const auto end = std::chrono::steady_clock::now() + patience;
        while (!seen()) {
            std::unique_lock lock(mutex_);
            if (!came_.wait_until(lock, end, [this] { return !pending_.empty(); })) return false;
            const auto work = std::move(pending_.front());
            pending_.pop_front();
            lock.unlock();
            work();
        }
        return true;
    }

  private:
    std::mutex mutex_;
    std::condition_variable came_;
    std::deque<std::function<void()>> pending_;
};

} // namespace vk::test
