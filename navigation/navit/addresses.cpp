#include "navigation/navit/addresses.h"

#include "navigation/navit/map_point.h"

#include <algorithm>
#include <utility>

namespace vk {

namespace {

// What is further away is not where the vehicle is.
constexpr double FarTownMetres = 30000, FarHouseMetres = 1000;
// A town's streets are looked at from the nearest on.
constexpr std::size_t MostStreets = 60, MostTowns = 20;

void SortByDistance(std::vector<SearchResult>& lines, MapPoint from) {
    std::ranges::stable_sort(
        lines, {}, [&](const SearchResult& line) { return MetresBetween(line.point, from); });
}

} // namespace

void Addresses::Queue(std::function<void()> question) {
    waiting_.push_back(std::move(question));
    if (!busy_) Next();
}

void Addresses::Next() {
    busy_ = !waiting_.empty();
    if (!busy_) return;
    const auto question = std::move(waiting_.front());
    waiting_.pop_front();
    question();
}

void Addresses::Prepare() {
    Queue([this] { PrepareSearch(); });
    ListTowns();
}

Chain Addresses::PrepareSearch() {
    co_await search_.Open();
    Next();
}

Chain Addresses::ListTowns() {
    const bool open = co_await listing_.Open();
    if (open) towns_ = co_await listing_.All(SearchLevel::Town);
}

// An address to a place
// ----------------------------------------------------------------------------

void Addresses::Find(const Address& address, MapPoint from,
                     std::function<void(std::optional<MapPoint>)> done) {
    Queue([this, address, from, done = std::move(done)] { FindChain(address, from, done); });
}

Chain Addresses::FindChain(Address address, MapPoint from,
                           std::function<void(std::optional<MapPoint>)> done) {
    std::optional<MapPoint> place;
    const bool open = !address.city.empty() && co_await search_.Open();
    std::vector<SearchResult> towns;
    if (open) towns = co_await search_.Find(SearchLevel::Town, address.city, MostTowns);
    SortByDistance(towns, from);
    for (std::size_t at = 0; at < towns.size() && !place; ++at)
        place = co_await InTown(towns[at], address);
    done(place);
    Next();
}

// What was chosen before stays chosen, so that each town is looked for anew.
Task<std::optional<MapPoint>> Addresses::InTown(SearchResult town, Address address) {
    if (address.street.empty()) co_return town.point;
    const auto again = co_await search_.Find(SearchLevel::Town, address.city, MostTowns);
    const auto same = std::ranges::find(again, town.point, &SearchResult::point);
    if (same == again.end()) co_return std::nullopt;
    co_await search_.Choose(SearchLevel::Town, same->id);
    const auto streets = co_await search_.Find(SearchLevel::Street, address.street, 1);
    if (streets.empty()) co_return std::nullopt;
    if (address.houseNumber.empty()) co_return streets[0].point;
    co_await search_.Choose(SearchLevel::Street, streets[0].id);
    const auto houses = co_await search_.Find(SearchLevel::HouseNumber, address.houseNumber, 1);
    if (houses.empty()) co_return std::nullopt;
    co_return houses[0].point;
}

// A place to an address
// ----------------------------------------------------------------------------

void Addresses::Nearest(MapPoint place, bool here,
                        std::function<void(std::optional<GeoAddress>)> done) {
    Queue([this, place, here, done = std::move(done)] { NearestChain(place, here, done); });
}

Chain Addresses::NearestChain(MapPoint place, bool here,
                              std::function<void(std::optional<GeoAddress>)> done) {
    std::optional<GeoAddress> address;
    std::string street;
    if (here) street = co_await CurrentStreet();
    const bool open = co_await search_.Open();
    if (open && towns_.empty()) towns_ = co_await search_.All(SearchLevel::Town);
    const std::optional<SearchResult> town = NearestTown(place);
    if (town) {
        std::optional<House> house = co_await NearestHouse(place, *town, street);
        if (!house) house.emplace().line.street = street;
        address = {house->line.houseNumber, house->line.street, town->town, "", house->line.postal};
    }
    done(address);
    Next();
}

std::optional<SearchResult> Addresses::NearestTown(MapPoint place) const {
    const auto nearest = std::ranges::min_element(
        towns_, {}, [&](const SearchResult& town) { return MetresBetween(town.point, place); });
    if (nearest == towns_.end() || MetresBetween(nearest->point, place) > FarTownMetres)
        return std::nullopt;
    return *nearest;
}

Task<std::string> Addresses::CurrentStreet() {
    Answer<std::optional<std::string>> asked(
        [this](NavitBus::Text done) { bus_.Evaluate("trackingo.street_name", std::move(done)); });
    const std::optional<std::string> name = co_await asked;
    // A street without a name is told in brackets.
    co_return name && !name->starts_with('(') ? *name : std::string();
}

Task<std::optional<Addresses::House>> Addresses::NearestHouse(MapPoint place, SearchResult town,
                                                              std::string street) {
    const auto towns = co_await search_.Find(SearchLevel::Town, town.town, MostTowns);
    const auto same = std::ranges::find(towns, town.point, &SearchResult::point);
    if (same == towns.end()) co_return std::nullopt;
    co_await search_.Choose(SearchLevel::Town, same->id);
    std::vector<SearchResult> streets;
    if (!street.empty()) streets = co_await search_.Find(SearchLevel::Street, street, 1);
    if (streets.empty()) streets = co_await search_.All(SearchLevel::Street);
    SortByDistance(streets, place);
    streets.resize(std::min(streets.size(), MostStreets));
    std::optional<House> nearest;
    for (const SearchResult& line : streets) {
        std::optional<House> house = co_await HouseOn(place, line);
        if (house && (!nearest || house->metres < nearest->metres)) nearest = std::move(house);
    }
    co_return nearest;
}

Task<std::optional<Addresses::House>> Addresses::HouseOn(MapPoint place, SearchResult street) {
    const auto again = co_await search_.Find(SearchLevel::Street, street.street, 1);
    if (again.empty()) co_return std::nullopt;
    co_await search_.Choose(SearchLevel::Street, again[0].id);
    auto houses = co_await search_.All(SearchLevel::HouseNumber);
    SortByDistance(houses, place);
    if (houses.empty()) co_return std::nullopt;
    const double metres = MetresBetween(houses[0].point, place);
    if (metres > FarHouseMetres) co_return std::nullopt;
    co_return House{houses[0], metres};
}

} // namespace vk
