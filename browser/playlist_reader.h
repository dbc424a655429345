// The list of a playlist's files.
#pragma once

#include "browser/browsed_place.h"

#include <cstdint>
#include <string>

namespace vk {

/// What it is given outlives it.
class PlaylistReader {
  public:
    PlaylistReader(ListDesk& desk, const BrowsedPlace& place) : desk_(desk), place_(place) {}

    /// Replaces the rows of the list by the existing files of a playlist.
    void ReadList(const std::string& path);

  private:
    void AddEditRow(const std::string& path);
    std::int32_t AddEntries(const std::string& path);

    ListDesk& desk_;
    const BrowsedPlace& place_;
};

} // namespace vk
