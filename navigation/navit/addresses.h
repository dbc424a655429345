// Addresses to places, and places to addresses.
#pragma once

#include "navigation/navit/search_list.h"
#include "platform/navigation_engine.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vk {

/// Questions are answered one after the other, each exactly once.
class Addresses {
  public:
    explicit Addresses(NavitBus& bus) : bus_(bus), search_(bus), listing_(bus) {}
    Addresses(const Addresses&) = delete;
    Addresses& operator=(const Addresses&) = delete;

    /// Opens the search and lists the map's towns, so that the first question is answered as fast
    /// as the others.
    void Prepare();
    /// Where an address is; of several towns of a name the one nearest to `from` that has it.
    void Find(const Address& address, MapPoint from,
              std::function<void(std::optional<MapPoint>)> done);
    /// The nearest house number: of the street that the vehicle is on (`here`: it is asked about
    /// its own place), or of the streets of the nearest town.
    void Nearest(MapPoint place, bool here, std::function<void(std::optional<GeoAddress>)> done);

  private:
    struct House {
        SearchResult line;
        double metres = 0;
    };
    void Queue(std::function<void()> question);
    void Next();
    Chain PrepareSearch();
    Chain ListTowns();
    Chain FindChain(Address address, MapPoint from,
                    std::function<void(std::optional<MapPoint>)> done);
    Task<std::optional<MapPoint>> InTown(SearchResult town, Address address);
    Chain NearestChain(MapPoint place, bool here,
                       std::function<void(std::optional<GeoAddress>)> done);
    Task<std::optional<House>> NearestHouse(MapPoint place, SearchResult town, std::string street);
    Task<std::optional<House>> HouseOn(MapPoint place, SearchResult street);
    Task<std::string> CurrentStreet();
    std::optional<SearchResult> NearestTown(MapPoint place) const;

    NavitBus& bus_;
    SearchList search_, listing_;
    std::vector<SearchResult> towns_;
    std::deque<std::function<void()>> waiting_;
    bool busy_ = false;
};

} // namespace vk
