// A recorded drive, played as it was driven.
#pragma once

#include "navigation/engine/sentence_feed.h"
#include "platform/clock.h"

#include <cstddef>
#include <string>

namespace vk {

/// A file of sentences. Those of one moment come together, and what lies between two moments
/// passes; behind the last it begins again.
class LogFeed : public SentenceFeed {
  public:
    LogFeed(Clock& clock, std::string path);
    bool Open() override;
    void Close() override;
    std::string Failure() const override { return "cannot be read"; }

  private:
    void Play();

    std::string path_, sentences_;
    std::size_t at_ = 0;
    std::unique_ptr<Timer> timer_;
};

} // namespace vk
