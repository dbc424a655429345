#include "core/file_writer.h"

#include "platform/files.h"

#include <utility>

namespace vk {

std::uint64_t DirectFileWriter::Replace(const std::string& path, std::string contents) {
    Outcome outcome{.path = path, .ticket = ++last_};
    outcome.done = ReplaceFile(path, contents, &outcome.reason);
    outcomes_.push_back(std::move(outcome));
    return last_;
}

QueuedFileWriter::QueuedFileWriter()
    : QueuedFileWriter([](const std::string& path, const std::string& contents,
                          std::string* reason) { return ReplaceFile(path, contents, reason); }) {}

QueuedFileWriter::QueuedFileWriter(ReplaceCall replace)
    : replace_(std::move(replace)), thread_([this] { Run(); }) {}

QueuedFileWriter::~QueuedFileWriter() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    asked_.notify_one();
    thread_.join();
}

// Only the last job may be brought up to date: to drop an earlier one would let what was asked for
// between them overtake it.
std::uint64_t QueuedFileWriter::Replace(const std::string& path, std::string contents) {
    const std::lock_guard lock(mutex_);
    if (!jobs_.empty() && jobs_.back().path == path) jobs_.pop_back();
    jobs_.push_back({path, std::move(contents), ++last_});
    asked_.notify_one();
    return last_;
}

void QueuedFileWriter::Finish() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return jobs_.empty() && !writing_; });
}

std::vector<FileWriter::Outcome> QueuedFileWriter::TakeOutcomes() {
    const std::lock_guard lock(mutex_);
    return std::exchange(outcomes_, {});
}

void QueuedFileWriter::Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        asked_.wait(lock, [this] { return ending_ || !jobs_.empty(); });
        if (jobs_.empty()) return;
        Write(lock);
    }
}

void QueuedFileWriter::Write(std::unique_lock<std::mutex>& lock) {
    const Job job = std::move(jobs_.front());
    jobs_.pop_front();
    writing_ = true;
    lock.unlock();
    Outcome outcome{.path = job.path, .ticket = job.ticket};
    outcome.done = replace_(job.path, job.contents, &outcome.reason);
    lock.lock();
    writing_ = false;
    outcomes_.push_back(std::move(outcome));
    if (jobs_.empty()) idle_.notify_all();
}

} // namespace vk
