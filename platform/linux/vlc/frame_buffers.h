// The memory that a film's pictures are decoded into.
#pragma once

#include "platform/media_player.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

namespace vk {

/// Three pictures: one is written while one waits and one is held by who paints it. The writing
/// side is the decoder's threads, the taking side the user-interface thread.
class FrameBuffers : public std::enable_shared_from_this<FrameBuffers> {
  public:
    struct Buffer {
        std::vector<std::uint32_t> memory;
        FilmPicture picture;
        int held = 0; ///< by `Take`
    };

    /// From now on pictures are so large; what is held stays.
    void Format(int width, int height);
    /// Bytes from a row to the next, and rows, of that format.
    int Stride() const { return stride_; }
    int Lines() const { return lines_; }
    /// Memory for the next picture; null before `Format`.
    Buffer* Begin();
    /// It is written, and waits in the place of one that nobody took. False, and it is dropped,
    /// when `onlyNew` and what is held shows the same.
    bool Show(Buffer* written, double pixelAspect, bool onlyNew);
    /// It is not to be seen.
    void Drop(Buffer* written);
    /// The one that waits; null when there is none.
    std::shared_ptr<const FilmPicture> Take();

  private:
    using Shared = std::shared_ptr<Buffer>;
    Shared Make() const;
    bool SameAsHeld(const Buffer& written) const;

    mutable std::mutex mutex_; ///< of all below but the format, which the writing side alone asks
    std::vector<Shared> buffers_;
    Shared writing_, ready_, taken_;
    int width_ = 0, height_ = 0, stride_ = 0, lines_ = 0;
};

} // namespace vk
