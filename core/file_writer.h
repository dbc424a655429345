// Replacing files in the order in which that was asked for, on a thread of its own: waiting for a
// disk to take them must not hold the interface.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace vk {

/// Every file is replaced whole, and after what was asked for before it: what a power cut leaves is
/// a moment of the past.
class FileWriter {
  public:
    /// How a replacement came out.
    struct Outcome {
        std::string path;
        std::uint64_t ticket = 0;
        bool done = false;
        std::string reason = {}; ///< the system's words, when it was not done
    };

    virtual ~FileWriter() = default;
    /// Asks for a replacement; its ticket, never 0.
    virtual std::uint64_t Replace(const std::string& path, std::string contents) = 0;
    /// Waits until all that was asked for is on the disk, or was tried.
    virtual void Finish() = 0;
    /// What came to its end since this was asked last. Contents that later ones took the place of
    /// have none.
    virtual std::vector<Outcome> TakeOutcomes() = 0;
};

/// Writes while the caller waits.
class DirectFileWriter : public FileWriter {
  public:
    std::uint64_t Replace(const std::string& path, std::string contents) override;
    void Finish() override {}
    std::vector<Outcome> TakeOutcomes() override { return std::exchange(outcomes_, {}); }

  private:
    std::uint64_t last_ = 0;
    std::vector<Outcome> outcomes_;
};

/// Writes on its thread; what is still queued at the end is written then.
class QueuedFileWriter : public FileWriter {
  public:
    using ReplaceCall = std::function<bool(const std::string&, const std::string&, std::string*)>;

    QueuedFileWriter();
    /// `replace` stands for the file system.
    explicit QueuedFileWriter(ReplaceCall replace);
    ~QueuedFileWriter() override;
    QueuedFileWriter(const QueuedFileWriter&) = delete;
    QueuedFileWriter& operator=(const QueuedFileWriter&) = delete;

    std::uint64_t Replace(const std::string& path, std::string contents) override;
    void Finish() override;
    std::vector<Outcome> TakeOutcomes() override;

  private:
    struct Job {
        std::string path, contents;
        std::uint64_t ticket;
    };
    void Run();
    void Write(std::unique_lock<std::mutex>& lock);

    ReplaceCall replace_;
    std::mutex mutex_; ///< of all that follows
    std::condition_variable asked_, idle_;
    std::deque<Job> jobs_;
    std::vector<Outcome> outcomes_;
    std::uint64_t last_ = 0;
    bool writing_ = false, ending_ = false;
    std::thread thread_;
};

} // namespace vk
