// Day or night by the clock: which skin is in use, and whether the screen is dimmed.
#pragma once

#include "core/app_state.h"
#include "core/screens.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "skin/skin.h"

#include <functional>
#include <string>

namespace vk {

class Daylight {
  public:
    struct Needs {
        AppState& state;
        SettingsStore& settings;
        const Clock& clock;
        const Screens& screens;
        SkinStore& skin;
        std::function<void(bool)> setDimmer; ///< empty where the screen cannot be dimmed
    };
    explicit Daylight(Needs needs) : n_(std::move(needs)) {}

    /// Follows the clock; called by the timers of the screens. With times that are no times of day
    /// everything stays as it is.
    void Check();
    /// Loads the skin named in `CurrentSkinFile` and has every screen laid out anew. A call from
    /// within is ignored.
    void ReloadSkin();

  private:
    Needs n_;
    std::string refused_; ///< a skin that could not be loaded
    bool reloading_ = false;
};

} // namespace vk
