// The thread that asks things of libVLC that may wait for a medium.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

namespace vk {

/// Runs jobs one after the other. One that hangs, as with a disc that no longer answers, is left
/// behind with its thread, and what is asked next is run on another. Used from one thread.
class VlcWorker {
  public:
    using Job = std::function<void()>;
    /// How long a job may take before the next ones stop waiting for it.
    static constexpr auto Patience = std::chrono::seconds(3);
    /// `idle` is run when nothing was asked for that long.
    static constexpr auto IdleAfter = std::chrono::seconds(2);

    explicit VlcWorker(Job idle);
    /// Waits for what is under way, but no longer than `Patience`.
    ~VlcWorker();
    VlcWorker(const VlcWorker&) = delete;
    VlcWorker& operator=(const VlcWorker&) = delete;

    void Ask(Job job);

  private:
    struct Line {
        std::mutex mutex;
        std::condition_variable changed;
        std::deque<Job> jobs;
        std::chrono::steady_clock::time_point begunAt; ///< of the job that runs
        bool running = false, quit = false, idle = false, ended = false;
        Job onIdle;
    };
    static void Work(Line& line);
    static bool RunNext(Line& line, std::unique_lock<std::mutex>& lock);
    void Begin();
    bool Hangs() const;

    const Job idle_;
    std::shared_ptr<Line> line_; ///< with its thread, which may outlive this object
};

} // namespace vk
