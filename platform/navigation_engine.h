// The navigation engine: a map that follows the vehicle, routes to addresses, and the receiver's
// sentences.
#pragma once

#include "platform/player_window.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vk {

/// Degrees; south and west are negative.
struct GeoPosition {
    double latitude = 0, longitude = 0;
    bool operator==(const GeoPosition&) const = default;
};

/// What a route leads to. An empty house number is the street, an empty street the town.
struct Address {
    std::string city, street, houseNumber;
    bool operator==(const Address&) const = default;
};

/// How an address was taken up; the numbers are the engine's own.
enum RouteStatus : std::int32_t {
    RouteFound = 0,
    RouteFailed = -1, ///< no engine, no answer, or no way
    AddressNotFound = -4
};

/// Whether there is a map to look at, and why not.
enum class EngineState {
    Stopped,        ///< not asked for
    Starting,       ///< no map on the screen yet
    Running,        ///< the map is there and answers
    MissingProgram, ///< the engine is not installed
    NoMap,          ///< it runs, but there is nothing to show
    Restarting      ///< it has ended or hung; it is started again, in growing pauses
};

/// What the engine works with.
struct EngineSetup {
    std::string map = {}; ///< full path of the map file
    /// Where sentences come from: a serial port by number or path ("/dev/ttyUSB0"), "gpsd" or
    /// "gpsd://host:port", or "log:" and the path of a recorded drive. "" is no receiver.
    std::string source = {};
    std::string serialSettings = "4800,N,8,1"; ///< for a serial port
    /// How large texts and lines are drawn, percent; 100 suits a screen of 480 lines.
    int drawnAt = 100;
    bool operator==(const EngineSetup&) const = default;
};

/// Nine values that the engine goes by, as text: zoom, orientation (degrees, -1 follows the
/// vehicle), follow (1 or 0), autozoom (1 or 0), vehicle profile, units (metric or imperial),
/// colours (day or night), pitch (degrees, 0 is flat), map.
using EngineSettings = std::array<std::string, 9>;

/// House number, street, city, state, postal code; what is not known is "".
using GeoAddress = std::array<std::string, 5>;

/// All on the user-interface thread, and nothing waits for the engine. What is asked for with a
/// `done` is answered exactly once, within five seconds, perhaps before the call returns; without a
/// running engine by failure. Destroying this ends the engine.
class NavigationEngine {
  public:
    virtual ~NavigationEngine() = default;
    /// The engine is installed; its version, "" when it is not.
    virtual std::string Installed() const = 0;
    /// Begins, or begins anew when it runs with another setup, or on a map that is another one now.
    /// It is kept alive from then on.
    virtual void Start(const EngineSetup& setup) = 0;
    virtual void Stop() = 0;
    virtual EngineState State() const = 0;
    /// What is wrong, for the screen; "" when nothing is.
    virtual std::string Complaint() const = 0;
    /// The window of the map, to be taken into ours; 0 as long as there is none. Each start has
    /// another.
    virtual WindowHandle MapWindow() const = 0;
    /// A route from where the vehicle is. The destination is taken up again after a new start.
    virtual void CalculateRoute(const Address& to, std::function<void(RouteStatus)> done) = 0;
    virtual void CancelRoute() = 0;
    /// Shows the whole route. False when there is none.
    virtual bool ShowCurrentRoute() = 0;
    /// Where the vehicle is, or was when it was known last.
    virtual void Position(std::function<void(std::optional<GeoPosition>)> done) = 0;
    /// The address nearest to a place; nothing when none is near.
    virtual void ReverseGeocode(const GeoPosition& place,
                                std::function<void(std::optional<GeoAddress>)> done) = 0;
    /// As they were read or written last.
    virtual EngineSettings Settings() const = 0;
    /// Values that are empty stay as they are.
    virtual void SetSettings(const EngineSettings& settings) = 0;
    /// Opens the source of the sentences; one that is missing or goes is tried again. An engine
    /// that is down is tried soon: somebody looks at the map.
    virtual void OpenPort() = 0;
    virtual void ClosePort() = 0;
    /// A map seen from behind the vehicle, or from above.
    virtual void SetThreeD(bool on) = 0;
    /// Colours for the night, or the day.
    virtual void SetNight(bool on) = 0;

    /// Bytes as they came from the source, in pieces of any length.
    std::function<void(std::string_view bytes)> onData;
    /// Nothing has come for three seconds with the port open, or the source has gone; told once,
    /// and again after bytes have come.
    std::function<void()> onSilent;
    /// A line for the log.
    std::function<void(const std::string&)> onLog;
    /// State, complaint or window have changed.
    std::function<void()> onChanged;
};

} // namespace vk
