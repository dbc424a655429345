#include "platform/linux/vlc/frame_buffers.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vk {

namespace {

constexpr int Count = 3;
// Converters write whole blocks.
constexpr int Align = 32;

int Aligned(int size) {
    return (size + Align - 1) / Align * Align;
}

} // namespace

void FrameBuffers::Format(int width, int height) {
    const std::lock_guard lock(mutex_);
    width_ = width;
    height_ = height;
    stride_ = Aligned(width) * static_cast<int>(sizeof(std::uint32_t));
    lines_ = Aligned(height);
    buffers_.clear();
    writing_ = ready_ = nullptr;
}

FrameBuffers::Shared FrameBuffers::Make() const {
    auto made = std::make_shared<Buffer>();
    const std::size_t row = static_cast<std::size_t>(stride_) / sizeof(std::uint32_t);
    made->memory.resize(row * static_cast<std::size_t>(lines_) + Align);
    made->picture = {made->memory.data(), width_, height_, stride_};
    return made;
}

// Where all are held or wait, the one that waits is given up.
FrameBuffers::Buffer* FrameBuffers::Begin() {
    const std::lock_guard lock(mutex_);
    if (width_ <= 0) return nullptr;
    const auto free = std::ranges::find_if(
        buffers_, [&](const Shared& each) { return each->held == 0 && each != ready_; });
    if (free != buffers_.end())
        writing_ = *free;
    else if (buffers_.size() < Count || !ready_)
        writing_ = buffers_.emplace_back(Make());
    else
        writing_ = std::exchange(ready_, nullptr);
    return writing_.get();
}

bool FrameBuffers::SameAsHeld(const Buffer& written) const {
    if (!taken_ || taken_->held == 0) return false;
    const FilmPicture &a = taken_->picture, &b = written.picture;
    if (a.width != b.width || a.height != b.height) return false;
    for (int row = 0; row < a.height; ++row) {
        const auto at = static_cast<std::size_t>(row) * static_cast<std::size_t>(a.stride);
        const auto of = [&](const FilmPicture& picture) {
            return reinterpret_cast<const char*>(picture.pixels) + at;
        };
        if (std::memcmp(of(a), of(b), static_cast<std::size_t>(a.width) * 4) != 0) return false;
    }
    return true;
}

bool FrameBuffers::Show(Buffer* written, double pixelAspect, bool onlyNew) {
    const std::lock_guard lock(mutex_);
    if (!written || written != writing_.get()) return false; // of another format
    const Shared mine = std::exchange(writing_, nullptr);
    if (onlyNew && SameAsHeld(*mine)) return false;
    mine->picture.pixelAspect = pixelAspect;
    ready_ = mine;
    return true;
}

void FrameBuffers::Drop(Buffer* written) {
    const std::lock_guard lock(mutex_);
    if (written == writing_.get()) writing_ = nullptr;
}

std::shared_ptr<const FilmPicture> FrameBuffers::Take() {
    const std::lock_guard lock(mutex_);
    if (!ready_) return nullptr;
    taken_ = std::exchange(ready_, nullptr);
    ++taken_->held;
    return {&taken_->picture, [self = shared_from_this(), mine = taken_](const FilmPicture*) {
                const std::lock_guard held(self->mutex_);
                --mine->held;
            }};
}

} // namespace vk
