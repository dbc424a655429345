// The running player: one poll loop around socket, engine and output.
#pragma once

#include "player/engine/instance.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// Keeps the signals that end the player (SIGTERM, SIGINT, SIGHUP), and that of a child's end, for
/// RunPlayer. To be called before any thread is started.
void HoldSignals();

/// Plays until a message or a signal ends it. `folder` holds winamp.ini; `entries` is the list to
/// begin with.
void RunPlayer(Instance& instance, const std::string& folder,
               const std::vector<std::string>& entries);

} // namespace vk
