// A receiver on a serial port.
#pragma once

#include "navigation/engine/sentence_feed.h"
#include "platform/serial_port.h"

namespace vk {

class SerialFeed : public SentenceFeed {
  public:
    /// `port`: a number or a path; `settings`: "4800,N,8,1" is what the standard prescribes.
    SerialFeed(std::unique_ptr<SerialPort> serial, std::string port, std::string settings);
    bool Open() override;
    void Close() override { serial_->Close(); }
    std::string Failure() const override { return serial_->Failure(); }

  private:
    std::unique_ptr<SerialPort> serial_;
    std::string port_, settings_;
};

} // namespace vk
