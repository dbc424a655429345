// Starting programs that go on by themselves.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace vk {

/// Starts a program in `folder`, in a session of its own (it outlives this process and hears none
/// of the terminal's signals), with the null device for its standard streams and no other open
/// file. Its process number, 0 when it could not be started.
pid_t SpawnDetached(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& folder);

/// Has a process that was just started work in the background from now on.
void PutInBackground(pid_t process);

} // namespace vk
