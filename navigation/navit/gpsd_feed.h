// A receiver that gpsd looks after.
#pragma once

#include "navigation/engine/sentence_feed.h"
#include "platform/linux/descriptor.h"

#include <QSocketNotifier>

#include <cstdint>
#include <memory>
#include <string>

namespace vk {

/// gpsd's protocol, release 3 and later (gpsd_json(5)): it is asked for sentences, makes them for
/// receivers that have a language of their own, and what else it says is left out.
class GpsdFeed : public SentenceFeed {
  public:
    /// "gpsd", or "gpsd://host:port" with an address in numbers or "localhost".
    explicit GpsdFeed(const std::string& source);
    bool Open() override;
    void Close() override;
    std::string Failure() const override { return failure_; }

  private:
    void Read();
    void Ask();
    void Lost(const std::string& why);

    std::string host_ = "127.0.0.1", failure_, pending_;
    std::uint16_t port_ = 2947;
    FileDescriptor socket_;
    std::unique_ptr<QSocketNotifier> reading_, writing_;
};

} // namespace vk
