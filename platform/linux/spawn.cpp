#include "platform/linux/spawn.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace vk {

namespace {

/// What the child's side of the start consists of.
class SpawnPlan {
  public:
    explicit SpawnPlan(const std::string& folder) {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
        for (int stream = 0; stream <= 2; ++stream)
            posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions, 3);
        posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
        sigset_t none, all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK |
                                                  POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnPlan() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

} // namespace

pid_t SpawnDetached(const std::string& program, const std::vector<std::string>& arguments,
                    const std::string& folder) {
    const SpawnPlan plan(folder);
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    pid_t child = 0;
    const int error = ::posix_spawn(&child, program.c_str(), &plan.actions, &plan.attributes,
                                    words.data(), environ);
    return error == 0 ? child : 0;
}

} // namespace vk
