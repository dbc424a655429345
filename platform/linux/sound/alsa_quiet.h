// ALSA's messages on the standard error stream.
#pragma once

namespace vk {

/// No message of this thread's calls is printed any more: a missing card is looked for again and
/// again, and what matters is in the results.
void KeepAlsaQuiet();

} // namespace vk
