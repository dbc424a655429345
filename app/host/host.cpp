#include "app/host/host.h"

namespace vk {

Host::Host(const Folders& folders, const Ports& machine)
    : ports(machine), log(folders.state, ports.machine.clock), settings(folders, ini),
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
