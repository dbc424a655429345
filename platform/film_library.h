// The library of films beside the program, which brings a player and its decoders into the process.
#pragma once

#include "platform/media_player.h"
#include "platform/ui_thread.h"

#include <memory>
#include <string>

namespace vk {

/// Loads it from the application directory, once, and makes a player; null with the cause in
/// `reason`. `ui` outlives the player.
std::unique_ptr<MediaPlayer> LoadMediaPlayer(const std::string& appDir, UiThread& ui,
                                             std::string& reason);

} // namespace vk
