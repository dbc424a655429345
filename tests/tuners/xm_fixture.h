// The satellite receiver's control over a simulated receiver.
#pragma once

#include "tests/sim/xm/sim_receiver.h"
#include "tests/support/core_test.h"
#include "tests/support/fake_serial_port.h"
#include "tests/support/recording_screen.h"
#include "tuners/xm/frames.h"
#include "tuners/xm/frm_xm_ctl.h"

namespace vk::test {

using testing::ElementsAre;

struct XMTest : CoreTest {
    ChannelTable channels;
    SerialList ports;
    FakeSerialPort* port = new FakeSerialPort;
    std::string receiverAt = "/dev/x"; ///< the port that it hangs on
    SimReceiver receiver{clock, [this](std::string_view bytes) { port->Receive(bytes); }};
    std::vector<std::string> frames; ///< "milliseconds: bytes" of each frame sent
    std::vector<std::string> line;   ///< what was done to the sound card's line
    std::vector<std::string> told;   ///< to the listener
    bool plays = false;
    std::int64_t start = 0; ///< times of `frames` count from here
    std::unique_ptr<frmXMCtl> made;

    XMTest() {
        ports[2] = {"XMPCR", "/dev/x"};
        receiver.script.delayMs = 5;
        port->onOutput = [this](std::string_view bytes) {
            EXPECT_TRUE(port->dtr && !port->rts);
            frames.push_back(std::to_string(clock.TickMs() - start) + ": " + Hex(bytes));
            if (port->opened.back().starts_with(receiverAt + " ")) receiver.Hear(bytes);
        };
        made = std::make_unique<frmXMCtl>(frmXMCtl::Needs{
            .base = base,
            .channels = channels,
            .port = std::unique_ptr<SerialPort>(port),
            .ports = [this] { return ports; },
            .line = {[this] { line.push_back("mute"); }, [this] { line.push_back("restore"); }},
            .plays = [this] { return plays; }});
        made->listener.UpdateChanInfo = [this](int channel, bool shown) {
            told.push_back(std::to_string(channel) + (shown ? " shown" : ""));
        };
        made->listener.RemoveChannel = [this](int channel) {
            told.push_back("no " + std::to_string(channel));
        };
    }
    frmXMCtl& xm() { return *made; }
    const XMState& State() { return made->State(); }
    /// The receiver is on, its signal known; nothing waits.
    void TurnOn() {
        xm().Form_Load();
        for (int i = 0; i < 200 && State().signalStatus == 0; ++i)
            clock.Advance(10);
        ASSERT_TRUE(xm().On());
        Forget();
    }
    /// Turned on, and on a channel whose answers are all there.
    void Tune(int channel) {
        TurnOn();
        EXPECT_TRUE(xm().SetChannel(channel));
        clock.Advance(1000);
        EXPECT_EQ(State().currentChannel, channel);
        Forget();
    }
    void Forget() {
        frames.clear();
        line.clear();
        told.clear();
        start = clock.TickMs();
    }
    /// How many frames with these bytes have been sent.
    std::int64_t Sent(const std::string& bytes) const {
        return std::ranges::count_if(
            frames, [&](const std::string& frame) { return frame.ends_with(": " + bytes); });
    }
    /// A payload as the receiver's, at once.
    void Say(const std::string& payload) { port->Receive(Frame(payload)); }
};

/// A payload of `size` bytes, zero but for the first ones.
inline std::string Payload(std::size_t size, std::initializer_list<int> first) {
    std::string text(first.begin(), first.end());
    text.resize(size);
    return text;
}
inline std::string With(std::string payload, std::size_t at, const std::string& text) {
    return payload.replace(at, text.size(), text);
}

inline const std::string Power = "5A A5 00 05 00 10 10 10 01 ED ED",
                         Signal = "5A A5 00 01 43 ED ED";

} // namespace vk::test
