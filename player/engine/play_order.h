// The list being played and the order of its entries.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Entries are numbered from 0. The current index may lie beyond the list: the list may arrive a
/// moment after it was chosen. With shuffle on, a random order is followed in which no entry comes
/// twice before all have come; `Previous` goes back in it, and from its beginning into the round
/// before.
class PlayOrder {
  public:
    explicit PlayOrder(std::uint32_t seed) : random_(seed) {}

    void Clear();
    /// Adds paths, each ended by a NUL; what goes beyond the limits of a list is left out.
    void Append(std::string_view paths);
    std::size_t Size() const { return starts_.size(); }
    std::int32_t Index() const { return index_; }
    /// Negative is taken as 0. An entry chosen after `Begin` counts as the latest played one.
    void SetIndex(std::int32_t index);
    bool InRange() const { return static_cast<std::size_t>(index_) < Size(); }
    /// Path of an entry of the list, a C string inside of it until the next change.
    const char* Path(std::size_t index) const { return text_.data() + starts_[index]; }

    /// The current entry is being played: from now on it has had its turn.
    void Begin() { begun_ = true; }

    void SetShuffle(bool on);
    bool Shuffle() const { return shuffle_; }
    void SetRepeat(bool on) { repeat_ = on; }
    bool Repeat() const { return repeat_; }

    /// Makes the next or previous entry the current one, around the ends with repeat. False, and
    /// nothing changed, at an end without repeat or in an empty list.
    bool Next();
    bool Previous();
    /// The index that `Next` would choose, nothing when there is none or it is not drawn yet.
    std::optional<std::size_t> PeekNext() const;

  private:
    bool Step(bool forward);
    bool TurnRound(bool forward);
    void Reshuffle();
    void ShuffleFrom(std::size_t first);
    void PutInOrder();

    // All paths in one piece: a hundred thousand texts of their own would take twice the memory.
    std::string text_;
    std::vector<std::uint32_t> starts_;
    std::vector<std::uint32_t> order_; ///< with shuffle on: a permutation, played up to `place_`
    /// The round before this one, or the one after it that was left backwards; may be empty.
    std::vector<std::uint32_t> other_;
    bool otherIsLater_ = false;
    std::size_t place_ = 0;
    std::int32_t index_ = 0;
    bool shuffle_ = false;
    bool repeat_ = false;
    bool begun_ = false;
    std::mt19937 random_;
};

} // namespace vk
