#include "hosting/launcher.h"

#include "hosting/command_line.h"
#include "platform/paths.h"

#include <utility>

namespace vk {

ProgramId Launcher::OpenProgram(const std::string& commandLine, int show) const {
    const CommandLine what = CommandLine::Parse(commandLine);
    if (what.program.empty()) return 0;
    return programs_.Start({.program = what.program,
                            .arguments = what.arguments,
                            .folder = FolderOf(what.program),
                            .ours = true,
                            .show = show});
}

Launched Launcher::WaitForInputIdle(ProgramId program) const {
    if (program == 0) return Launched::Ended;
    bool window = false;
    std::int64_t nextMs = 0;
    const auto done = [&] {
        const std::int64_t now = base_.clock.TickMs();
        if (!std::exchange(look_, false) && now < nextMs) return false;
        nextMs = now + LookMs;
        window = windows_.AppHasWindow(program);
        return window || !programs_.AnyRunning(program);
    };
    const Waited waited = base_.pump.Until({"a program", done, PatienceMs});
    if (window) return Launched::Window;
    if (waited == Waited::Ended) return Launched::Stopped;
    return waited == Waited::Done ? Launched::Ended : Launched::None;
}

} // namespace vk
