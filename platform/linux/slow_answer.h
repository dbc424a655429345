// The answer to a question that may take long, as one to a drive that spins up or hangs.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace vk {

/// Asks on a thread of its own, one question at a time. One that never comes back keeps its thread,
/// and nothing else.
template<class Answer> class SlowAnswer {
  public:
    using Question = std::function<Answer()>;

    /// Asks and waits that long at most. As long as a question is out, others are not asked and
    /// nothing is waited for. What was answered last; before the first answer a default one.
    Answer Ask(Question question, std::chrono::milliseconds patience) {
        std::unique_lock lock(shared_->mutex);
        if (!shared_->out && Start(std::move(question)))
            shared_->answered.wait_for(lock, patience, [this] { return !shared_->out; });
        return shared_->answer;
    }

  private:
    /// What the thread needs, which may outlive the asker.
    struct Shared {
        std::mutex mutex;
        std::condition_variable answered;
        Answer answer{};
        bool out = false; ///< a question that has no answer yet
    };

    bool Start(Question question) {
        try {
            std::thread([shared = shared_, question = std::move(question)] {
                Answer answer = question();
                const std::lock_guard lock(shared->mutex);
                shared->answer = std::move(answer);
                shared->out = false;
                shared->answered.notify_all();
            }).detach();
            shared_->out = true; // the thread waits for the lock until then
        } catch (const std::system_error&) {
            return false; // no thread to be had: what was known holds on
        }
        return true;
    }

    std::shared_ptr<Shared> shared_ = std::make_shared<Shared>();
};

} // namespace vk
