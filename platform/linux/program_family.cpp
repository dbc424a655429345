#include "platform/linux/program_family.h"

#include "platform/files.h"

#include <unistd.h>

#include <cctype>
#include <csignal>
#include <cstdlib>

namespace vk {

namespace {

constexpr int KillRounds = 3; // one that is ended may just have started another

} // namespace

// While a session has members the kernel gives its number to no process: one of that number that is
// not our child is somebody else's.
bool ProgramFamilies::Known(pid_t leader) const {
    if (!leaders_.contains(leader)) return false;
    return children_.Running(leader) || ::kill(leader, 0) != 0;
}

bool ProgramFamilies::Has(pid_t process, pid_t leader) const {
    return process > 0 && Known(leader) && ::getsid(process) == leader;
}

std::vector<pid_t> ProgramFamilies::Members(pid_t leader) const {
    std::vector<pid_t> members;
    if (!Known(leader)) return members;
    for (const FolderEntry& entry : ListFolder("/proc")) {
        if (!std::isdigit(static_cast<unsigned char>(entry.name[0]))) continue;
        const auto process = static_cast<pid_t>(std::atol(entry.name.c_str()));
        if (::getsid(process) == leader) members.push_back(process);
    }
    return members;
}

bool ProgramFamilies::Any(pid_t leader) const {
    return leaders_.contains(leader) && (children_.Running(leader) || !Members(leader).empty());
}

void ProgramFamilies::Kill(pid_t leader) const {
    for (int round = 0; round < KillRounds; ++round)
        for (const pid_t member : Members(leader))
            ::kill(member, SIGKILL);
}

} // namespace vk
