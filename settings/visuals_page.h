// The page for the visualisations, with a cube that turns.
#pragma once

#include "core/base.h"
#include "platform/foreign_windows.h"
#include "playback/c_winamp.h"
#include "playback/transport.h"
#include "settings/pages/page.h"

#include <functional>

namespace vk {

/// All of it outlives the page.
struct VisualsPageNeeds {
    Base& base;
    std::function<cWinamp*()> winamp; ///< null as long as there is none
    Transport& transport;
    ForeignWindows* windows = nullptr; ///< null where the player's cannot be brought forward
};

/// `settingsVisuals`.
Page VisualsPage(const VisualsPageNeeds& needs);

} // namespace vk
