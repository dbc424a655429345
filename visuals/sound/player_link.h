// What the player plays and where it is, asked over its socket.
#pragma once

#include "platform/linux/player_socket.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace vk {

struct PlayerNews {
    bool playing = false;
    std::int64_t positionMs = 0;
    std::string file; ///< path or address, "" while nothing is loaded
};

/// One connection; each look waits for the player a fifth of a second at most.
class PlayerLink {
  public:
    explicit PlayerLink(std::string socketPath) : path_(std::move(socketPath)) {}

    /// Asks anew; false when the player has gone. One that hangs is there, and tells nothing new.
    bool Look();
    const PlayerNews& News() const { return news_; }

  private:
    bool Ask(const PlayerRequest& request, PlayerAnswer& answer);

    std::string path_;
    FileDescriptor connection_;
    PlayerNews news_;
};

} // namespace vk
