// One way by which a receiver's sentences come.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace vk {

/// A receiver, or what stands for one. Bytes pass as they come, in pieces of any length.
class SentenceFeed {
  public:
    virtual ~SentenceFeed() = default;
    /// Begins; false when there is nothing to read from. Never waits.
    virtual bool Open() = 0;
    virtual void Close() = 0;
    /// Why it could not be opened or has gone, for the log.
    virtual std::string Failure() const = 0;

    /// Both may close the feed, but must not destroy it.
    std::function<void(std::string_view bytes)> onBytes;
    std::function<void()> onGone;
};

/// A feed for a source as `EngineSetup` names it; null for one that it does not know.
using MakeSentenceFeed = std::function<std::unique_ptr<SentenceFeed>(
    const std::string& source, const std::string& serialSettings)>;

} // namespace vk
