// gps.lst: the places that were saved under a name, one a line.
#pragma once

#include "core/debug_log.h"

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// Texts are UTF-8.
struct SavedPlace {
    std::string name, city, street, houseNumber, state;

    /// As a list shows it.
    std::string Text() const { return name + " - " + city + " " + street + " " + houseNumber; }
    /// What leads there again, see `AddressOfTag`.
    std::string Tag() const { return city + "|" + street + "|" + houseNumber; }
};

/// The places of a text in the form of gps.lst; `foreign` counts the lines that are none.
std::vector<SavedPlace> ParsePlaces(std::string_view text, int& foreign);
/// The line of a place, with its end; what would end a field or the line does not come into it.
std::string LineOf(const SavedPlace& place);

class SavedPlaces {
  public:
    /// Bytes of gps.lst that are read: a longer file is none of ours.
    static constexpr std::size_t LongestFile = 1u << 20;

    /// `log` outlives this object.
    SavedPlaces(std::string file, const DebugLog& log) : file_(std::move(file)), log_(log) {}

    bool AnySaved() const;
    /// In the order in which they were saved; lines that are no place are told in the log and left
    /// out.
    std::vector<SavedPlace> Read() const;
    /// Adds one behind the others, which stay as they are; the file is replaced in one step. ""
    /// when that was done, else why not.
    std::string Append(const SavedPlace& place) const;

  private:
    const std::string file_;
    const DebugLog& log_;
};

} // namespace vk
