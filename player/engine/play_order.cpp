#include "player/engine/play_order.h"

#include "player/engine/list_file.h"

#include <algorithm>
#include <numeric>

namespace vk {

namespace {

constexpr std::size_t TextLimit = 512u << 20;

} // namespace

void PlayOrder::Clear() {
    text_ = {};
    starts_ = {};
    order_ = other_ = {};
    place_ = 0;
    index_ = 0;
    begun_ = false;
}

void PlayOrder::Append(std::string_view paths) {
    const std::size_t before = Size();
    while (Size() < ListEntryLimit) {
        const auto end = paths.find('\0');
        if (end == std::string_view::npos || text_.size() + end >= TextLimit) break;
        if (end > 0) {
            starts_.push_back(static_cast<std::uint32_t>(text_.size()));
            text_.append(paths.substr(0, end + 1));
        }
        paths.remove_prefix(end + 1);
    }
    if (!shuffle_ || Size() == before) return;
    if (!begun_) return Reshuffle();
    other_ = {};
    order_.resize(Size());
    std::iota(order_.begin() + static_cast<std::ptrdiff_t>(before), order_.end(),
              static_cast<std::uint32_t>(before));
    ShuffleFrom(place_ + 1);
}

void PlayOrder::SetIndex(std::int32_t index) {
    index_ = std::max(0, index);
    if (!shuffle_) return;
    if (begun_)
        PutInOrder();
    else
        Reshuffle();
}

void PlayOrder::SetShuffle(bool on) {
    shuffle_ = on;
    order_ = other_ = {};
    if (on) Reshuffle();
}

bool PlayOrder::Next() {
    return Step(true);
}

bool PlayOrder::Previous() {
    return Step(false);
}

std::optional<std::size_t> PlayOrder::PeekNext() const {
    const std::size_t place = shuffle_ ? place_ : static_cast<std::size_t>(index_);
    if (place + 1 < Size()) return shuffle_ ? order_[place + 1] : place + 1;
    if (shuffle_ && repeat_ && otherIsLater_ && other_.size() == Size() && Size() > 0)
        return other_.front();
    if (shuffle_ || !repeat_ || Size() == 0) return std::nullopt;
    return 0;
}

bool PlayOrder::Step(bool forward) {
    if (Size() == 0) return false;
    const std::size_t place = shuffle_ ? place_ : static_cast<std::size_t>(index_);
    const bool atEnd = forward ? place + 1 >= Size() : place == 0;
    if (atEnd && !repeat_) return false;
    if (atEnd && shuffle_ && TurnRound(forward)) return true;
    std::size_t next = forward ? (atEnd ? 0 : place + 1) : (atEnd ? Size() : place) - 1;
    next = std::min(next, Size() - 1);
    if (shuffle_) {
        if (atEnd && forward) {
            // The entry that ended the round must not begin the next one.
            other_ = order_;
            otherIsLater_ = false;
            ShuffleFrom(0);
            if (Size() > 1 && order_.front() == static_cast<std::uint32_t>(index_))
                std::swap(order_.front(), order_.back());
        }
        place_ = next;
        next = order_[next];
    }
    index_ = static_cast<std::int32_t>(next);
    return true;
}

// Back into the round before, or forward again into the one that was left for it.
bool PlayOrder::TurnRound(bool forward) {
    if (other_.size() != Size() || otherIsLater_ != forward) return false;
    std::swap(order_, other_);
    otherIsLater_ = !forward;
    place_ = forward ? 0 : Size() - 1;
    index_ = static_cast<std::int32_t>(order_[place_]);
    return true;
}

void PlayOrder::Reshuffle() {
    other_ = {};
    order_.resize(Size());
    std::iota(order_.begin(), order_.end(), 0u);
    place_ = 0;
    ShuffleFrom(0);
    if (!InRange()) return;
    std::swap(order_.front(), *std::find(order_.begin(), order_.end(), index_));
}

void PlayOrder::ShuffleFrom(std::size_t first) {
    if (first < order_.size())
        std::shuffle(order_.begin() + static_cast<std::ptrdiff_t>(first), order_.end(), random_);
}

// An entry that was chosen by hand becomes the latest of the played ones.
void PlayOrder::PutInOrder() {
    if (!InRange() || order_.empty()) return;
    const auto found = std::find(order_.begin(), order_.end(), static_cast<std::uint32_t>(index_));
    const auto place = order_.begin() + static_cast<std::ptrdiff_t>(place_);
    if (found <= place) {
        std::rotate(found, found + 1, place + 1);
    } else {
        place_ += 1;
        std::rotate(place + 1, found, found + 1);
    }
}

} // namespace vk
