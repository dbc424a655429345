#include "platform/background.h"

#include "platform/linux/spawn.h"

#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vk {

void PutInBackground(pid_t process) {
    // Not SCHED_IDLE: its share beside one busy program is a fifth of this one's, and it may be
    // passed over for whole seconds.
    constexpr int LeastUrgent = 19;
    constexpr int OfProcess = 1;       // IOPRIO_WHO_PROCESS
    constexpr int IdleClass = 3 << 13; // IOPRIO_CLASS_IDLE
    ::setpriority(PRIO_PROCESS, static_cast<id_t>(process), LeastUrgent);
    ::syscall(SYS_ioprio_set, OfProcess, process, IdleClass);
}

void WorkInBackground() {
    PutInBackground(0);
}

// Both calls take 0 for the calling thread.
void WorkThreadInBackground() {
    PutInBackground(0);
}

} // namespace vk
