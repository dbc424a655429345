// Tags read on all cores at once.
#pragma once

#include "core/debug_log.h"
#include "dbupdate/scan/walk.h"
#include "library/catalogue/file_row.h"

#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace vk {

/// What is to be read, and how. All of it outlives the pool.
struct TagWork {
    const std::string& root;
    const FoundFiles& found;
    const std::vector<const FoundFile*>& files; ///< of these
    const std::string& decimalSymbol;
    const bool& extendedTags;
    const DebugLog& log;
    const std::atomic<bool>& stop;
};

/// Begins to read when it is made; what is read waits in a queue of limited length.
class TagPool {
  public:
    explicit TagPool(const TagWork& work);
    /// Waits for the threads to end; what has not been taken is lost.
    ~TagPool();

    using Rows = std::vector<FileRow>;
    /// The next rows, in the order of the files; nothing at the end, or after a stop.
    std::optional<Rows> Take();

  private:
    bool Start();
    void Read();
    bool Hand(std::size_t first, Rows rows);

    const TagWork work_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::map<std::size_t, Rows> ready_; ///< by the index of their first file
    std::size_t taken_ = 0;             ///< files whose rows have been taken
    std::atomic<std::size_t> next_ = 0; ///< index of the first file that nobody reads yet
    std::size_t reading_ = 0;           ///< threads at work
    bool closing_ = false;
    std::vector<std::jthread> threads_;
};

} // namespace vk
