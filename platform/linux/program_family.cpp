#include "platform/linux/program_family.h"

#include "platform/files.h"
#include "platform/linux/process_state.h"

#include <unistd.h>

#include <cctype>
#include <csignal>
#include <cstdlib>

namespace vk {

namespace {

constexpr int KillRounds = 3; // one that is ended may just have started another

} // namespace

void ProgramFamilies::Add(pid_t leader) {
    const auto state = StateOf(leader);
    leaders_[leader] = state ? state->startTicks : 0;
}

bool ProgramFamilies::Add(const StartedPrograms::value_type& leader) {
    if (leaders_.contains(leader.first) || ::getsid(0) == leader.first) return false;
    leaders_.insert(leader);
    const bool there = Any(leader.first);
    if (!there) leaders_.erase(leader.first);
    return there;
}

// While a session has members the kernel gives its number to no process: one of that number that
// was started at another time is somebody else's.
bool ProgramFamilies::Known(pid_t leader) const {
    const auto known = leaders_.find(leader);
    if (known == leaders_.end()) return false;
    if (children_.Running(leader)) return true;
    const auto now = StateOf(leader);
    return !now || now->startTicks == known->second;
}

bool ProgramFamilies::Has(pid_t process, pid_t leader) const {
    return process > 0 && ::getsid(process) == leader && Known(leader);
}

std::vector<pid_t> ProgramFamilies::Members(pid_t leader) const {
    std::vector<pid_t> members;
    if (!Known(leader)) return members;
    for (const FolderEntry& entry : ListFolder("/proc")) {
        if (!std::isdigit(static_cast<unsigned char>(entry.name[0]))) continue;
        const auto process = static_cast<pid_t>(std::atol(entry.name.c_str()));
        if (::getsid(process) != leader) continue;
        if (const auto state = StateOf(process); state && !state->zombie)
            members.push_back(process);
    }
    return members;
}

bool ProgramFamilies::Any(pid_t leader) const {
    return leaders_.contains(leader) && (children_.Running(leader) || !Members(leader).empty());
}

void ProgramFamilies::Close(pid_t leader) const {
    for (const pid_t member : Members(leader))
        ::kill(member, SIGTERM);
}

void ProgramFamilies::Kill(pid_t leader) const {
    for (int round = 0; round < KillRounds; ++round)
        for (const pid_t member : Members(leader))
            ::kill(member, SIGKILL);
}

StartedPrograms ProgramFamilies::Living(const std::vector<pid_t>& leaders) const {
    StartedPrograms living;
    for (const pid_t leader : leaders)
        if (Any(leader)) living.insert(*leaders_.find(leader));
    return living;
}

} // namespace vk
