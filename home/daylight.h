// Day or night by the clock: which skin is in use, and whether the screen is dimmed.
#pragma once

#include "core/base.h"
#include "skin/skin.h"

#include <functional>
#include <optional>
#include <string>

namespace vk {

class Daylight {
  public:
    /// Both outlive this object.
    Daylight(Base& base, SkinStore& skin) : base_(base), skin_(skin) {}

    /// Follows the clock; called by the timers of the screens. With times that are no times of day
    /// everything stays as it is.
    void Check();
    /// Loads the skin named in `CurrentSkinFile` and has every screen laid out anew. A call from
    /// within is ignored.
    void ReloadSkin();

    /// The next check dims as if the night had just begun: what was undimmed for the settings is
    /// dimmed again.
    void Forget() { day_.reset(); }

    std::function<void(bool)> setDimmer; ///< empty where the screen cannot be dimmed

  private:
    Base& base_;
    SkinStore& skin_;
    bool reloading_ = false;
    std::optional<bool> day_; ///< at the last check
};

} // namespace vk
