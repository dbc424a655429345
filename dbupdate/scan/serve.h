// The server's conversation on its standard streams.
#pragma once

namespace vk {

/// Reads requests from standard input and writes events to standard output until it is told to quit
/// or the other side is gone. A scan runs in the background; a request for one while one runs is
/// answered with an error. Returns the program's exit code.
int Serve();

} // namespace vk
