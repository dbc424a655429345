#include "platform/linux/child_watch.h"

#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <mutex>
#include <set>
#include <thread>

namespace vk {

struct ChildWatch::Shared {
    std::mutex mutex;
    std::condition_variable ended;
    std::set<pid_t> running;

    void Collect(pid_t child) {
        siginfo_t info{};
        // It stays a zombie until the lock is held: till then its number is nobody else's.
        while (::waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOWAIT) != 0 &&
               errno == EINTR) {
        }
        const std::lock_guard lock(mutex);
        ::waitpid(child, nullptr, 0);
        running.erase(child);
        ended.notify_all();
    }
};

ChildWatch::ChildWatch() : shared_(std::make_shared<Shared>()) {}

void ChildWatch::Watch(pid_t child) {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->running.insert(child);
    }
    std::thread([shared = shared_, child] { shared->Collect(child); }).detach();
}

bool ChildWatch::Running(pid_t child) const {
    const std::lock_guard lock(shared_->mutex);
    return shared_->running.contains(child);
}

void ChildWatch::Signal(pid_t child, int number) const {
    const std::lock_guard lock(shared_->mutex);
    if (shared_->running.contains(child)) ::kill(child, number);
}

bool ChildWatch::Wait(pid_t child, int timeoutMs) const {
    std::unique_lock lock(shared_->mutex);
    return shared_->ended.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                                   [&] { return !shared_->running.contains(child); });
}

} // namespace vk
