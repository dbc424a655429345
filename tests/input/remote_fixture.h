// The remote wired on fakes, with what it told.
#pragma once

#include "input/remote/remote.h"
#include "platform/serial_owners.h"
#include "tests/support/core_test.h"
#include "tests/support/fake_serial_port.h"
#include "tests/support/machine_fakes.h"

namespace vk::test {

struct RemoteFixture : CoreTest {
    RemoteFixture() {
        Settings& s = settings.values;
        s.remoteStatus = s.UseDelay = true;
        s.speed = 171;
        s.delay = 700;
        remote.IRCommand = [this](const std::string& code, bool repeat) {
            commands.push_back(code);
            repeats += repeat;
            if (onCommand) std::exchange(onCommand, {})();
        };
    }
    /// Opens the receiver of `type` at port 2.
    bool Init(const std::string& type) {
        settings.Write("remote", "type", type);
        if (settings.Read("remote", "comport").empty()) settings.Write("remote", "comport", "2");
        return remote.InitRemote();
    }
    /// An opened receiver of type CREATIVE, which needs no waking up, on the fake port.
    FakeSerialPort& OpenCreative() {
        EXPECT_TRUE(Init("CREATIVE"));
        clock.Advance(10);
        return *port;
    }
    /// A whole burst and the silence after it: 7 ms end it, and as many the command that it gave.
    void Burst(std::string_view bytes, int silenceMs = 20) {
        port->Receive(bytes);
        clock.Advance(silenceMs);
    }
    std::unique_ptr<SerialPort> MakePort() {
        auto made = std::make_unique<FakeSerialPort>();
        made->present = portPresent;
        port = made.get();
        return made;
    }

    using Commands = std::vector<std::string>;
    Commands commands;
    int repeats = 0;                 ///< of the commands: those of a button held on
    std::function<void()> onCommand; ///< runs inside of the next one
    FakeUiThread ui;
    FakeSerialPort* port = nullptr; ///< of the receiver that was opened last
    bool portPresent = true;
    SerialOwners owners; ///< of real ports
    /// May be changed until the receiver is opened.
    RemoteDevices devices{[this] { return MakePort(); }, {}, {}, {}};
    Remote remote{{base,
                   ui,
                   {[this] { return devices.serial(); }, [this] { return devices.stream(); },
                    [this] { return devices.x10(); },
                    [this](auto& reason) { return devices.uuirt(reason); }, 60'000}}};
};

} // namespace vk::test
