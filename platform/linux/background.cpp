#include "platform/background.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vk {

void WorkInBackground() {
    // Not SCHED_IDLE: its share beside one busy program is a fifth of this one's, and it may be
    // passed over for whole seconds.
    constexpr int LeastUrgent = 19;
    constexpr int OfProcess = 1;       // IOPRIO_WHO_PROCESS
    constexpr int IdleClass = 3 << 13; // IOPRIO_CLASS_IDLE
    ::setpriority(PRIO_PROCESS, 0, LeastUrgent);
    ::syscall(SYS_ioprio_set, OfProcess, 0, IdleClass);
}

} // namespace vk
