// The engine's D-Bus: the calls of navit 0.5.6 that are known to leave it alive, and no others.
#pragma once

#include "platform/linux/dbus/dbus_link.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vk {

/// Mercator on a sphere of 6,371,000 m, in whole metres: what the engine counts in.
struct MapPoint {
    std::int32_t x = 0, y = 0;
    bool operator==(const MapPoint&) const = default;
};

/// A line of a search. What its level does not know is "".
struct SearchResult {
    std::int32_t id = 0;
    MapPoint point;
    std::string country, town, street, houseNumber, postal;
};

/// All that is asked is answered, by an empty value when the engine is not there, says no or is
/// silent for some seconds.
class NavitBus {
  public:
    using Done = std::function<void(bool)>;
    using Text = std::function<void(std::optional<std::string>)>;
    using Found = std::function<void(std::optional<SearchResult>)>;

    explicit NavitBus(const std::string& address);
    void Connect() { link_.Connect(); }

    /// A value by its name, such as "layout.name". Those of `navigation` kill the engine.
    void Evaluate(const char* name, Text done);
    void SetNumber(const char* name, std::int32_t value);
    void SetSwitch(const char* name, bool value);
    void SetLayout(const char* name);
    void SetDestination(MapPoint point, const std::string& name, Done done);
    void ClearDestination();
    void ZoomToRoute();
    /// The map anew; while it follows the vehicle a new way would wait for the next position.
    void Draw();

    /// A search: its path for the calls below. It is kept by the engine until `EndSearch`.
    void NewSearch(Text done);
    void Search(const std::string& search, const char* level, const std::string& text,
                bool beginnings, Done done);
    /// The next line; nothing behind the last.
    void Result(const std::string& search, Found done);
    /// Goes on below a line; 0 is all of them.
    void Select(const std::string& search, const char* level, std::int32_t id, Done done);
    void EndSearch(const std::string& search);

    /// The connection is made: what comes to the bus from now on is told.
    std::function<void()> onReady;
    /// The engine has come to the bus, or left it.
    std::function<void(bool there)> onEngine;
    /// The bus has gone.
    std::function<void()> onLost;

  private:
    template<class... Arguments>
    void Tell(const char* method, const char* types, Arguments... arguments);
    void FromMapset(const std::string& mapset, Text done);

    DBusLink link_;
};

} // namespace vk
