// One connection to the player, as its remote control holds it: no answer is waited for long, and
// the order of questions and answers is kept whatever the player does.
#pragma once

#include "platform/linux/player_socket.h"

#include <sys/types.h>

#include <cstddef>
#include <string>

namespace vk {

class PlayerConnection {
  public:
    /// Connects in the place of what there was; false when nobody listens. Never waits.
    bool Open(const std::string& path);
    void Close();
    /// True while the other end has it open. Takes answers that came late.
    bool Alive();
    /// True while an answer is missing that was waited for in vain.
    bool Owes() const { return owed_ > 0; }
    /// Sends and waits `timeoutMs` milliseconds at most; a reply of zero for no answer. While one
    /// is owed nothing waits: what is sent then is done in its turn, should the player ever go on.
    PlayerAnswer Ask(const PlayerRequest& request, int timeoutMs);
    /// The process at the other end; 0 when it is not known.
    pid_t Process() const;

  private:
    FileDescriptor socket_;
    std::size_t owed_ = 0;
};

} // namespace vk
