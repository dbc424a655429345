#include "app/host/host.h"

namespace vk {

Host::Host(const std::string& appDir, const Ports& machine)
    : ports(machine), log(appDir, ports.machine.clock), settings(appDir, ini),
      skin({state, settings, ports.screen.fonts, dialogs, report,
            [this] { return ports.screen.metrics().width; }}) {
    report.unloadAll = [this] { quit(false); };
    background.hide(); // until the start reaches it: messages may come before
    dialogs.SetSkin(&skin);
    dialogs.SetKeys(&keys);
}

void Host::LeaveScreen(const char* name) {
    const ScreenOperations* screen = screens.CurrentForm == name ? screens.Current() : nullptr;
    if (screen) TrapAndLog(report, std::string("Leaving ") + name + ": ", screen->doquit);
}

} // namespace vk
