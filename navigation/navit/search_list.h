// A search through the map's countries, towns, streets and house numbers, level by level.
#pragma once

#include "navigation/navit/navit_bus.h"
#include "navigation/navit/task.h"

#include <string>
#include <vector>

namespace vk {

/// The levels below the countries, as the engine calls them.
struct SearchLevel {
    static constexpr const char* Town = "town_name";
    static constexpr const char* Street = "street_name";
    static constexpr const char* HouseNumber = "house_number";
};

/// One search of the engine, in all countries. One chain at a time.
class SearchList {
  public:
    explicit SearchList(NavitBus& bus) : bus_(bus) {}

    /// Makes it and goes through the countries once; at once when that has been done.
    Task<bool> Open();
    /// The lines of a level below what has been chosen; at most `most`. `all`: whatever their
    /// names are, else those called `text`, without regard to case and accents.
    Task<std::vector<SearchResult>> Find(const char* level, std::string text,
                                         std::size_t most = Most);
    Task<std::vector<SearchResult>> All(const char* level, std::size_t most = Most);
    /// Goes on below a line of the last `Find` of that level.
    Task<bool> Choose(const char* level, std::int32_t id);

    static constexpr std::size_t Most = 200000;

  private:
    Task<std::vector<SearchResult>> Lines(const char* level, std::string text, bool beginnings,
                                          std::size_t most);

    NavitBus& bus_;
    std::string path_;
};

} // namespace vk
