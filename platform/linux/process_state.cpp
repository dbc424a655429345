#include "platform/linux/process_state.h"

#include <fstream>
#include <sstream>
#include <string>

namespace vk {

namespace {

constexpr int StateField = 3, StartField = 22; // of stat, counted from 1 (proc(5))

} // namespace

// "number (name) state ...", and the name may hold anything.
std::optional<ProcessState> StateOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string stat;
    std::getline(file, stat);
    const auto name = stat.rfind(") ");
    if (name == std::string::npos) return std::nullopt;
    std::istringstream fields(stat.substr(name + 2));
    std::string state, skipped;
    fields >> state;
    for (int field = StateField + 1; field < StartField; ++field)
        fields >> skipped;
    ProcessState known{.zombie = state == "Z"};
    fields >> known.startTicks;
    return known;
}

} // namespace vk
