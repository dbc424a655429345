#include "player/engine/vis_program.h"

#include "platform/linux/spawn.h"
#include "platform/paths.h"

#include <sys/wait.h>

#include <csignal>
#include <utility>

namespace vk {

void VisProgram::Toggle(std::uint64_t client) {
    Collect();
    if (Running()) return End();
    client_ = client;
    child_ = SpawnDetached(JoinPath(folder_, Name), {}, folder_);
}

void VisProgram::Left(std::uint64_t client) {
    if (client == client_) End();
}

// Among them those that were killed, which nobody waits for.
void VisProgram::Collect() {
    for (pid_t ended = 0; (ended = ::waitpid(-1, nullptr, WNOHANG)) > 0;)
        if (ended == child_) child_ = 0;
}

void VisProgram::End() {
    if (Running()) ::kill(std::exchange(child_, 0), SIGKILL);
}

} // namespace vk
