// The hand-over of a list to the running player: what "/ADD" does.
#pragma once

#include "platform/linux/player_socket.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vk {

/// Nanoseconds of the steady clock, which all processes of the machine share.
std::int64_t SteadyNanoseconds();

/// Sends the entries over the connection. `startedNs` is when the hand-over began: the player drops
/// a list that is older than its last clearing. False when the player went away or did not want it.
bool HandOver(const FileDescriptor& connection, const std::vector<std::string>& entries,
              std::int64_t startedNs);

} // namespace vk
