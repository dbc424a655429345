// The texts of the status group on the map: what the receiver told last.
#pragma once

#include "navigation/dest_events.h"

#include <string>

namespace vk {

/// The word for a track in degrees; "?" for exactly 0, which is what a receiver that stands still
/// tells.
std::string CompassWord(double degrees);

struct GPSStatus {
    std::string speedText = "0.00"; ///< miles per hour
    std::string statusText = "No Sats";
    std::string headingText = "0"; ///< degrees

    /// Takes what is shown of an event; false for one of which nothing is.
    bool Take(DestEvent event, const std::string& text);

    std::string Status() const { return "GPS: " + statusText; }
    std::string Speed() const { return "Speed: " + speedText; }
    std::string Heading() const;
};

} // namespace vk
