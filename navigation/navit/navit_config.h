// The engine's configuration, written anew at each start.
#pragma once

#include <string>

namespace vk {

/// What differs from one start to the next.
struct NavitConfig {
    std::string map;      ///< full path
    std::string receiver; ///< the terminal that its sentences come from
    bool window = true;   ///< false: without a display
    bool night = false;
    bool imperial = false;
    std::string profile = "car"; ///< of `VehicleProfiles`
    int zoom = 32;               ///< 1 is the nearest
    int orientation = -1;        ///< degrees; -1 follows the vehicle
    bool autoZoom = true;
    int drawnAt = 100; ///< percent, of `EngineSetup`
};

/// The vehicles that the engine knows ways for.
constexpr const char* VehicleProfiles[] = {"car", "car_shortest"};

/// The file's text.
std::string NavitConfigText(const NavitConfig& config);

/// The text of the configuration of a bus of its own that listens at an address, for its user
/// alone, and starts nothing.
std::string PrivateBusConfigText(const std::string& address);

} // namespace vk
