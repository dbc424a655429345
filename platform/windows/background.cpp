#include "platform/background.h"

#include <windows.h>

namespace vk {

// Whoever waits for seconds is raised for a moment by the system itself.
void WorkInBackground() {
    ::SetPriorityClass(::GetCurrentProcess(), IDLE_PRIORITY_CLASS);
}

void WorkThreadInBackground() {
    ::SetThreadPriority(::GetCurrentThread(), THREAD_MODE_BACKGROUND_BEGIN);
}

} // namespace vk
