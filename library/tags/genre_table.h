// The genres that tags name by number.
#pragma once

#include "library/tags/tag_record.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The genre table; empty, thus not initialised, until it is filled.
class GenreTable {
  public:
    bool Initialised() const { return !genres_.empty(); }
    /// The highest index, -1 while the table is empty.
    int UpperIndex() const { return static_cast<int>(genres_.size()) - 1; }

    /// Takes the ID3v1 genres and their usual extensions, "Blues" (0) to "Folklore" (114).
    void FillBuiltIn();
    /// Takes one genre a line, as many as can be numbered; false, and nothing changes, when there
    /// is no line.
    bool FillFromLines(std::string_view contents);

    /// The description of an index; "(Unknown Genre)" when it is out of range.
    std::string Description(int index) const;
    /// The index of a description without regard to case; 255 when it is not in the table.
    std::uint8_t Number(std::string_view description) const;

    /// Sets number and description of a record from an index; out of range they say "unknown".
    void Take(int index, TagRecord& tag) const;
    /// Supplies what a reader left open: the number of a description, or "(Unknown Genre)".
    void Complete(TagRecord& tag) const;

  private:
    std::vector<std::string> genres_;
};

} // namespace vk
