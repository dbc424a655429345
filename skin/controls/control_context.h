// What every drawn control needs; one object a program, made after the skin and before the screens.
#pragma once

#include "core/app_state.h"
#include "core/commands.h"
#include "core/pump.h"
#include "core/settings.h"
#include "platform/clock.h"
#include "skin/controls/picture_cache.h"
#include "skin/skin.h"

namespace vk {

/// References only: what they name outlives every control.
struct ControlContext {
    AppState& state;
    const Settings& settings;
    const SkinStore& skin;
    PictureCache& pictures;
    Clock& clock;
    Pump& pump;
    Commands& commands; ///< what a touch asks for is run through it
};

} // namespace vk
