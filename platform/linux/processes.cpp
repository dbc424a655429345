#include "platform/linux/processes.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <string.h>
#include <strings.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

namespace vk {

namespace {

constexpr char ReplacedMark[] = " (deleted)";

// The file name of a process's program; "" when it has gone or belongs to somebody else.
std::string ProgramOf(const std::string& id) {
    std::string path(4096, '\0');
    const std::string link = "/proc/" + id + "/exe";
    const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    if (path.ends_with(ReplacedMark)) path.resize(path.size() - sizeof ReplacedMark + 1);
    return FileNameOf(path);
}

std::string WithoutExe(const std::string& name) {
    const bool has = name.size() > 4 && strcasecmp(name.c_str() + name.size() - 4, ".exe") == 0;
    return has ? name.substr(0, name.size() - 4) : name;
}

} // namespace

long LinuxProcesses::OwnId() const {
    return ::getpid();
}

// Field 22 of stat, in clock ticks since the machine started (proc(5)); the second field may hold
// blanks.
long LinuxProcesses::AgeMs() const {
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

bool LinuxProcesses::ProcessRunning(const std::string& name, long ownId) const {
    const std::string wanted = WithoutExe(name);
    for (const FolderEntry& entry : ListFolder("/proc")) {
        if (!entry.isFolder || !std::isdigit(static_cast<unsigned char>(entry.name[0]))) continue;
        if (std::atol(entry.name.c_str()) == ownId) continue;
        if (strcasestr(ProgramOf(entry.name).c_str(), wanted.c_str())) return true;
    }
    return false;
}

} // namespace vk
