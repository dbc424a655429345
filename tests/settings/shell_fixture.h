// What the settings' shell needs, on fakes.
#pragma once

#include "settings/settings_shell.h"
#include "tests/startup/start_fixture.h"

namespace vk::test {

struct ShellFixture : StartFixture {
    SettingsShell::Needs ShellNeeds() {
        return {base,
                loading,
                skin,
                keys,
                remoteKeys,
                extensions,
                updates,
                desktop,
                {[this] { start->FinishExecution(); }, [this] { start->ReloadScreens(); }, [] {},
                 [this] { ++exits; }, [this] { return lirc; },
                 [this] {
                     start->GetResolutions();
                     screens.LayOut();
                 }}};
    }
    std::unique_ptr<astart> start = Make();
    FakeDesktop desktop;
    bool lirc = false; ///< somebody listens on its socket
    int exits = 0;     ///< how often the end was asked for
};

} // namespace vk::test
