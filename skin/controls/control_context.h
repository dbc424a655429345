// What every drawn control needs; one object a program, made after the skin and before the screens.
#pragma once

#include "core/app_state.h"
#include "core/commands.h"
#include "core/pump.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "skin/controls/picture_cache.h"
#include "skin/skin.h"

#include <functional>

namespace vk {

/// What the references name outlives every control.
struct ControlContext {
    AppState& state;
    const Settings& settings;
    const SkinStore& skin;
    PictureCache& pictures;
    Clock& clock;
    Pump& pump;
    Commands& commands; ///< what a touch asks for is run through it
    /// Dims the screen by hand, or undims it; empty where there is nothing to dim with.
    std::function<void()> toggleDim = {};

    void ToggleDim() const {
        if (toggleDim) toggleDim();
    }
};

} // namespace vk
