#include "platform/linux/vlc/vlc_worker.h"

#include <utility>

namespace vk {

VlcWorker::VlcWorker(Job idle) : idle_(std::move(idle)) {
    Begin();
}

VlcWorker::~VlcWorker() {
    std::unique_lock lock(line_->mutex);
    line_->quit = true;
    line_->changed.notify_all();
    line_->changed.wait_for(lock, Patience, [this] { return line_->ended; });
}

void VlcWorker::Begin() {
    line_ = std::make_shared<Line>();
    line_->onIdle = idle_;
    std::thread([line = line_] { Work(*line); }).detach();
}

bool VlcWorker::Hangs() const {
    const std::lock_guard lock(line_->mutex);
    return line_->running && std::chrono::steady_clock::now() - line_->begunAt > Patience;
}

// What waits behind a job that hangs comes to its turn on the next thread.
void VlcWorker::Ask(Job job) {
    std::deque<Job> waiting;
    if (Hangs()) {
        {
            const std::lock_guard lock(line_->mutex);
            waiting = std::exchange(line_->jobs, {});
            line_->quit = true;
        }
        Begin();
    }
    const std::lock_guard lock(line_->mutex);
    for (Job& each : waiting)
        line_->jobs.push_back(std::move(each));
    line_->jobs.push_back(std::move(job));
    line_->changed.notify_all();
}

// A job is let go where it ran: with it may go the last hold on what it used.
bool VlcWorker::RunNext(Line& line, std::unique_lock<std::mutex>& lock) {
    const auto due = [&] { return line.quit || !line.jobs.empty(); };
    bool idles = false;
    if (line.idle)
        line.changed.wait(lock, due);
    else
        idles = !line.changed.wait_for(lock, IdleAfter, due);
    if (!idles && line.jobs.empty()) return false;
    line.idle = idles;
    Job job = line.onIdle;
    if (!idles) {
        job = std::move(line.jobs.front());
        line.jobs.pop_front();
    }
    line.running = true;
    line.begunAt = std::chrono::steady_clock::now();
    lock.unlock();
    job();
    job = nullptr;
    lock.lock();
    line.running = false;
    return true;
}

void VlcWorker::Work(Line& line) {
    std::unique_lock lock(line.mutex);
    while (RunNext(line, lock)) {
    }
    line.onIdle = nullptr;
    line.ended = true;
    line.changed.notify_all();
}

} // namespace vk
