#include "platform/own_process.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <sstream>
#include <string>

namespace vk {

// Field 22 of stat, in clock ticks since the machine started (proc(5)); the second field may hold
// blanks.
long OwnProcessAgeMs() {
    std::ifstream file("/proc/self/stat");
    std::string line;
    std::getline(file, line);
    std::istringstream fields(line.substr(std::min(line.size(), line.rfind(')') + 1)));
    std::string word;
    for (int field = 3; field <= 22; ++field)
        fields >> word;
    timespec now{};
    ::clock_gettime(CLOCK_BOOTTIME, &now);
    const long startedMs = std::atol(word.c_str()) * 1000 / ::sysconf(_SC_CLK_TCK);
    return now.tv_sec * 1000 + now.tv_nsec / 1000000 - startedMs;
}

} // namespace vk
