// Key pictures of MP4 and QuickTime films, from the tables of their index. (ISO/IEC 14496-12:
// boxes 4.2, mdhd 8.4.2, hdlr 8.4.3, stts 8.6.1.2, stss 8.6.2, elst 8.6.6)
#pragma once

#include "platform/mpeg/key_pictures.h"

#include <utility>
#include <vector>

namespace vk {

class Mp4Keys : public KeyPictures {
  public:
    /// Null for what is no such file, tells no such pictures, or has nothing else.
    static std::unique_ptr<KeyPictures> Of(const std::string& file);
    std::optional<double> Near(double seconds) override;

  private:
    explicit Mp4Keys(std::vector<double> moments) : moments_(std::move(moments)) {}

    std::vector<double> moments_; ///< when they are decoded, seconds, ascending
};

} // namespace vk
