// The remote wired on fakes, with what it told.
#pragma once

#include "input/remote/remote.h"
#include "platform/serial_owners.h"
#include "tests/support/core_fixture.h"
#include "tests/support/fake_serial_port.h"
#include "tests/support/machine_fakes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vk::test {

class FakeX10 : public X10Remote {};

struct RemoteFixture : testing::Test, CoreFixture {
    RemoteFixture() {
        settings.values.remoteStatus = true;
        settings.values.speed = 171;
        settings.values.delay = 700;
        settings.values.UseDelay = true;
        remote.IRCommand = [this](const std::string& code, bool repeat) {
            commands.push_back(code);
            repeats += repeat;
            if (onCommand) onCommand();
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
    int LinesLogged(const std::string& text) const {
        const std::string lines = app.Read("debug.log");
        int count = 0;
        for (auto at = lines.find(text); at != std::string::npos; at = lines.find(text, at + 1))
            ++count;
        return count;
    }

    using Commands = std::vector<std::string>;
    Commands commands;
    int repeats = 0; ///< of the commands: those of a button held on
    std::function<void()> onCommand;
    FakeUiThread ui;
    FakeSerialPort* port = nullptr; ///< of the receiver that was opened last
    FakeX10* x10 = nullptr;
    bool portPresent = true;
    SerialOwners owners; ///< of real ports
    RemoteDevices devices{.serial =
                              [this] {
                                  auto made = std::make_unique<FakeSerialPort>();
                                  made->present = portPresent;
                                  port = made.get();
                                  return made;
                              },
                          .stream = {},
                          .x10 =
                              [this] {
                                  auto made = std::make_unique<FakeX10>();
                                  x10 = made.get();
                                  return made;
                              },
                          .uuirt = {}}; ///< may be changed until the receiver is opened
    Remote remote{{.base = base,
                   .ui = ui,
                   .devices = {.serial = [this] { return devices.serial(); },
                               .stream = [this] { return devices.stream(); },
                               .x10 = [this] { return devices.x10(); },
                               .uuirt = [this](auto& reason) { return devices.uuirt(reason); }}}};
};

} // namespace vk::test
