// What the receiver's sentences tell, field by field.
#pragma once

#include <functional>
#include <string>

namespace vk {

/// The events of the engine's control, in the order of their declaration.
enum class DestEvent {
    NMEAData,        ///< declared, never raised
    GPSStatusChange, ///< "1" valid fix, "0" none
    GPSTimeUpdate,   ///< "12:35:19 GMT"
    GPSLatUpdate,    ///< the hemisphere's letter: the position itself is the engine's
    GPSLongUpdate,   ///< likewise
    GPSSpeedUpdate,  ///< miles per hour, "0.00"
    GPSTrackUpdate,  ///< degrees, as they were sent
    GPSDateUpdate    ///< "dd-mm-yy"
};

using DestEvents = std::function<void(DestEvent event, const std::string& text)>;

} // namespace vk
