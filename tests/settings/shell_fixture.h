// What the settings' shell needs, on fakes.
#pragma once

#include "settings/settings_shell.h"
#include "tests/startup/start_fixture.h"
#include "tests/support/fake_serial_port.h"

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
                 [this] { ++exits; },
                 [this] {
                     start->GetResolutions();
                     screens.LayOut();
                 }},
                {base,
                 remoteKeys,
                 [this] { return lirc; },
                 [this](auto listener) { heard = std::move(listener); },
                 {clock, [this] { return ports; }, [this] { return MakePort(); },
                  [name = uuirt](std::string& reason) { return LoadFirstLibrary({name}, reason); },
                  DriverAnswersMs}}};
    }
    std::unique_ptr<astart> start = Make();
    FakeDesktop desktop;
    std::unique_ptr<SerialPort> MakePort() {
        auto serial = std::make_unique<FakeSerialPort>();
        port = serial.get();
        port->onOutput = [this](std::string_view bytes) {
            if (bytes == "R") port->Receive(answer);
        };
        return serial;
    }
    static constexpr int DriverAnswersMs = 60'000;
    const char* uuirt = "/nowhere/libuuirtdrv.so"; ///< its driver library
    bool lirc = false;                             ///< somebody listens on its socket
    SerialList ports;
    FakeSerialPort* port = nullptr; ///< the one made last, as long as that is there
    std::string answer;             ///< of its device, when it is woken up
    FirstReceiver::Listener heard;
    int exits = 0; ///< how often the end was asked for
};

} // namespace vk::test
