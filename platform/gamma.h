// The gamma ramps of the displays.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vk {

/// One value an index and channel, 0 to 65535; the channels are of one length, 256 as a rule.
struct GammaRamp {
    std::vector<std::uint16_t> red, green, blue;
    bool operator==(const GammaRamp&) const = default;
};

/// The ramp of one part of the display hardware.
struct DisplayRamp {
    std::string display; ///< its name, which stays while the display server runs
    GammaRamp ramp;
    bool operator==(const DisplayRamp&) const = default;
};

/// All on the user-interface thread.
class Gamma {
  public:
    virtual ~Gamma() = default;
    /// Every ramp there is, of displays that are dark now as well: they may be switched on later.
    /// Empty where there is none.
    virtual std::vector<DisplayRamp> Read() const = 0;
    /// False when the display has gone or its driver refuses.
    virtual bool Write(const DisplayRamp& ramp) = 0;

    std::function<void()> onDisplays; ///< a display came, went or changed
};

/// The platform's own; null where displays have no ramps.
std::unique_ptr<Gamma> MakeGamma();

} // namespace vk
