// Closing the player process and starting it again, as for a change of its settings.
#pragma once

#include "core/base.h"
#include "playback/c_winamp.h"
#include "playback/transport.h"

#include <functional>

namespace vk {

/// What restarts the player. A command: it waits up to five seconds with events running.
struct PlayerRestart {
    Base& base;
    cWinamp& winamp;
    Transport& transport;

    /// Closes the player, runs `whileClosed` and starts it; what it played goes on where it was.
    void Run(const std::function<void()>& whileClosed) const;
};

} // namespace vk
