// Frames that wait for the satellite receiver's answer to the one before.
#pragma once

#include "tuners/xm/trace.h"

#include <deque>
#include <string>

namespace vk {

/// `outputQueue`.
class OutputQueue {
  public:
    explicit OutputQueue(Trace trace = {}) : trace_(std::move(trace)) {}

    /// Puts a frame in front of the others or behind them.
    void Put(const std::string& frame, bool prepend);
    /// Takes the foremost frame; the queue is not empty.
    std::string Take();
    bool Empty() const { return frames_.empty(); }
    void Clear() { frames_.clear(); }

  private:
    template<class Change> void Traced(const char* what, Change change);
    std::string Bytes() const;

    Trace trace_;
    std::deque<std::string> frames_;
};

} // namespace vk
