#include "navigation/gps_status.h"

#include "core/text.h"

#include <array>

namespace vk {

namespace {

struct Sector {
    double from; // degrees
    const char* word;
};

constexpr std::array Sectors = {Sector{337.5, "N"},  Sector{292.5, "NW"}, Sector{247.5, "W"},
                                Sector{202.5, "SW"}, Sector{157.5, "S"},  Sector{112.5, "SE"},
                                Sector{67.5, "E"},   Sector{22.5, "NE"}};

} // namespace

std::string CompassWord(double degrees) {
    if (degrees == 0) return "?";
    for (const Sector& sector : Sectors)
        if (degrees >= sector.from) return sector.word;
    return "N";
}

bool GPSStatus::Take(DestEvent event, const std::string& text) {
    if (event == DestEvent::GPSTrackUpdate)
        headingText = text;
    else if (event == DestEvent::GPSSpeedUpdate)
        speedText = text;
    else if (event == DestEvent::GPSStatusChange)
        statusText = text == "1" ? "Active" : "No Sats";
    else
        return false;
    return true;
}

std::string GPSStatus::Heading() const {
    return "Heading: " + CompassWord(ParseDecimal(headingText).value_or(0));
}

} // namespace vk
