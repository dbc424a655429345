// Dimming by the displays' gamma ramps: half of what was found.
#pragma once

#include "platform/gamma.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace vk {

/// Half of each entry, a half to the even one.
GammaRamp Halved(const GammaRamp& ramp);

class RampDimming {
  public:
    /// `gamma` outlives this object; `found` is told what was found before that is changed.
    RampDimming(Gamma& gamma, std::function<void(const std::vector<DisplayRamp>&)> found)
        : gamma_(gamma), found_(std::move(found)) {}

    /// False where there are no ramps; throws what the driver refuses.
    bool Dim();
    /// Displays came or went, or were reset: those that are not dimmed are.
    void Follow();
    /// Gives back what was found, to a display that is away when it comes.
    void Restore();
    /// The same for what a run that crashed had found, where a display is still dimmed.
    void GiveBack(const std::vector<DisplayRamp>& found);

  private:
    using Ramps = std::map<std::string, GammaRamp>;
    std::vector<DisplayRamp> TakeNew();
    bool Apply(const std::vector<DisplayRamp>& found);
    void GiveBackLate();

    Gamma& gamma_;
    std::function<void(const std::vector<DisplayRamp>&)> found_;
    Ramps SavedRamp;  ///< as found, by display
    Ramps DimmedRamp; ///< as read back: drivers round
    bool dimmed_ = false;
};

} // namespace vk
