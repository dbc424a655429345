// Rows of many files, written on a thread of its own: to read their tags and to wait for the disk
// would hold the interface.
#pragma once

#include "core/debug_log.h"
#include "library/catalogue/schema.h"
#include "library/tags/media_type.h"

#include <cstddef>
#include <future>
#include <string>
#include <vector>

namespace vk {

class RowQueue {
  public:
    /// What rows are made from, and the file that they go to. The log outlives the queue.
    struct Place {
        std::string catalogue;
        MediaExtensions extensions;
        std::string mediaDir; ///< as it stands in the settings
        Origin origin;
        std::string decimalSymbol;
        const DebugLog& log;
    };
    /// Some are written at a time, in one transaction.
    static constexpr std::size_t AtOnce = 256;
    /// How often what fails is tried, as another program may hold the file.
    static constexpr int Tries = 3;

    RowQueue() = default;
    ~RowQueue() { StartOver(); }
    RowQueue(const RowQueue&) = delete;
    RowQueue& operator=(const RowQueue&) = delete;

    /// Full paths.
    void Add(const std::vector<std::string>& paths);
    bool Empty() const { return paths_.empty(); }
    void Clear();
    /// True while some are being written.
    bool Writing() const;
    /// Begins with the first ones; none are being written, and there are some.
    void Begin(Place place);
    /// To be called when they are written. Throws why they could not be.
    void Finish();
    /// Waits for what is being written, which counts as not written: its file is to be another one.
    void StartOver();

  private:
    std::vector<std::string> paths_; ///< what is being written first
    std::size_t begun_ = 0;          ///< of them
    int failures_ = 0;               ///< of those, one after the other
    std::future<void> writing_;
};

} // namespace vk
