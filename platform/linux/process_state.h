// What the system tells of a process.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <optional>

namespace vk {

struct ProcessState {
    bool zombie = false;          ///< it has ended, and only its parent has not looked
    std::uint64_t startTicks = 0; ///< since the machine's start; a number given again has another
};

/// Nothing when there is none of that number.
std::optional<ProcessState> StateOf(pid_t process);

} // namespace vk
