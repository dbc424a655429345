#include "platform/linux/program_notes.h"

#include "platform/files.h"

#include <fstream>
#include <sstream>

namespace vk {

namespace {

constexpr std::size_t LongestNotes = 1 << 16;

std::string Boot() {
    std::ifstream id("/proc/sys/kernel/random/boot_id");
    std::string boot;
    id >> boot;
    return boot;
}

} // namespace

void ProgramNotes::Write(const StartedPrograms& programs) const {
    if (file_.empty()) return;
    DeleteFileAt(file_);
    if (programs.empty()) return;
    std::string text = Boot() + "\n";
    for (const auto& [program, startTicks] : programs)
        text += std::to_string(program) + " " + std::to_string(startTicks) + "\n";
    AppendToFile(file_, text);
}

StartedPrograms ProgramNotes::Read() const {
    StartedPrograms programs;
    std::istringstream text(file_.empty() ? "" : ReadWholeFile(file_, LongestNotes).value_or(""));
    std::string boot;
    if (!(text >> boot) || boot != Boot()) return programs;
    pid_t program = 0;
    std::uint64_t startTicks = 0;
    while (text >> program >> startTicks)
        if (program > 1) programs[program] = startTicks;
    return programs;
}

} // namespace vk
