// The strength of the satellite receiver's signal in percent.
#pragma once

#include <cstdint>

namespace vk {

/// Of the terrestrial level, 0 to 99.9; smaller levels are stronger.
double TerrestrialPercent(int level);
/// Of one satellite's level, 0 to 99.9.
double SatellitePercent(std::uint8_t level);
/// The one of three that is above both others, rounded; 0 when the highest is shared.
int SignalPercent(double satelliteA, double satelliteB, double terrestrial);

} // namespace vk
