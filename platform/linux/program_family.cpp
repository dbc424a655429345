#include "platform/linux/program_family.h"

#include "platform/files.h"

#include <unistd.h>

#include <cctype>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>

namespace vk {

namespace {

constexpr int KillRounds = 3; // one that is ended may just have started another

// It has ended, and only its parent has not looked: "number (name) state ..." (proc(5)).
bool IsZombie(const std::string& process) {
    std::ifstream file("/proc/" + process + "/stat");
    std::string stat;
    std::getline(file, stat);
    const auto name = stat.rfind(") ");
    return name != std::string::npos && stat.substr(name + 2, 1) == "Z";
}

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
        if (::getsid(process) == leader && !IsZombie(entry.name)) members.push_back(process);
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
