// A terminal by which the engine hears the receiver's sentences.
#pragma once

#include "platform/linux/descriptor.h"

#include <string>
#include <string_view>

namespace vk {

/// A pseudo-terminal. Both ends stay open here, so that neither of them sees the other go.
class ReceiverPty {
  public:
    ReceiverPty();
    /// What the engine opens; "" when there is none.
    const std::string& Path() const { return path_; }
    /// Hands bytes over; those that nobody takes are dropped, as a radio's are.
    void Write(std::string_view bytes);
    /// Drops what nobody has read.
    void Clear();

  private:
    FileDescriptor ours_, theirs_;
    std::string path_;
};

} // namespace vk
