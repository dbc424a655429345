// The display's own saver, which does not know that somebody looks.
#pragma once

namespace vk {

/// Puts the saver off, at most once in half a minute. On the thread of the windows.
void KeepScreenAwake();

} // namespace vk
