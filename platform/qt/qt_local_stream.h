// A Unix domain socket (SOCK_STREAM) read from Qt's event loop.
#pragma once

#include "platform/linux/descriptor.h"
#include "platform/local_stream.h"

#include <QSocketNotifier>

#include <memory>

namespace vk {

class QtLocalStream : public LocalStream {
  public:
    bool Connect(const std::string& path) override;
    void Close() override;
    std::string Input() override;

  private:
    void Read();

    FileDescriptor socket_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace vk
