// The ignition: its line, the crank of the starter, flapping, and the machine's end after a delay.
#include "power/carrier_line.h"
#include "power/ignition.h"
#include "tests/support/core_test.h"
#include "tests/support/fake_serial_port.h"

namespace vk::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct IgnitionTest : CoreTest {
    /// The settings as a driver has them, and the system's start.
    void Begin(const std::string& lines, bool carrier = true) {
        app.Write("settings.ini", "[AccControl]\n" + lines);
        settings.LoadSettings();
        carrierThere_ = carrier;
        ignition.initAccSense();
        heard.clear();
    }
    void Line(bool on) { port->SetCarrier(on); }
    /// Time passes as it does under the supervisor.
    void Pass(int seconds) {
        for (int i = 0; i < seconds * 2; ++i)
            clock.Advance(500), ignition.Supervise();
    }

    std::vector<std::string> heard; ///< what the system was told
    bool present = true;
    bool carrierThere_ = true;
    FakeSerialPort* port = nullptr;
    Ignition ignition{{.base = base,
                       .carrier =
                           [this] {
                               auto made = std::make_unique<FakeSerialPort>();
                               port = made.get();
                               port->present = present;
                               port->carrier = carrierThere_;
                               return std::make_unique<CarrierLine>(std::move(made));
                           },
                       .gpio = {},
                       .pause = [this] { heard.push_back("pause"); },
                       .goOn = [this] { heard.push_back("go on"); },
                       .shutDown = [this] { heard.push_back("off"); }}};
};

TEST_F(IgnitionTest, PausesAtOnceGoesOnAtOnceAndEndsTheMachineAfterTheDelay) {
    Begin("accSensePort=2\naccOffDelay=60\n");
    EXPECT_THAT(port->opened, ElementsAre(SerialPortName(2) + " 9600,N,8,1"));
    Line(false);
    EXPECT_THAT(heard, ElementsAre("pause"));
    EXPECT_TRUE(Logged("paused playback due to ACC low - COM2"));
    Pass(50);
    Line(true);
    Pass(100);
    EXPECT_THAT(heard, ElementsAre("pause", "go on")) << "the delay ended with the ignition off";
    Line(false);
    clock.SetNow({1970, 1, 1}); // the time of day may jump, the delay does not
    Pass(59);
    EXPECT_EQ(heard.back(), "pause");
    Pass(2);
    EXPECT_EQ(heard.back(), "off");
    EXPECT_EQ(LinesLogged("acc timeout shutdown initiated"), 1);
    Pass(70);
    EXPECT_EQ(LinesLogged("acc timeout shutdown initiated"), 2) << "it was refused: once more";
    Begin("accSensePort=1\naccOffDelay=0\n");
    Line(false);
    Pass(100000);
    EXPECT_THAT(heard, ElementsAre("pause")) << "without a delay";
}

TEST_F(IgnitionTest, LeavesThePortsOfOthersAndIsOffWithPortZero) {
    const std::tuple<const char*, bool, bool> cases[] = {
        {"accSensePort=0\n", false, false},
        {"accSensePort=nonsense\n", false, false},
        {"accSensePort=3\n[xmpcr_tuner]\nenabled=true\nport=3\n", false, true},
        {"accSensePort=3\n[xmpcr_tuner]\nenabled=true\nport=4\n", true, false},
        {"accSensePort=3\n[xmpcr_tuner]\nenabled=false\nport=3\n", true, false},
        {"accSensePort=3\n[remote]\nstatus=true\ntype=irman\ncomport=3\n", false, false},
        {"accSensePort=3\n[remote]\nstatus=true\ntype=LIRC\ncomport=3\n", true, false},
        {"accSensePort=/dev/x\n[remote]\nstatus=true\ntype=CREATIVE\ncomport=/dev/x\n", false,
         false},
    };
    for (const auto& [lines, opens, logs] : cases) {
        app.Write("debug.log", "");
        port = nullptr;
        Begin(lines);
        EXPECT_EQ(port != nullptr, opens) << lines;
        EXPECT_EQ(Logged("Acc Sense port cannot be shared with XM tuner"), logs) << lines;
        EXPECT_TRUE(opens || heard.empty()) << lines;
    }
}

TEST_F(IgnitionTest, ALineThatIsLowWhenItIsOpenedIsOff) {
    Begin("accSensePort=1\naccOffDelay=60\n", false);
    EXPECT_TRUE(ignition.Off()) << "the key was turned while the system started";
    Pass(61);
    EXPECT_THAT(heard, ElementsAre("off"));
    Begin("accSensePort=0\naccOffDelay=60\n");
    EXPECT_FALSE(ignition.Off());
}

TEST_F(IgnitionTest, ADeviceThatGoesIsLookedForAndTheIgnitionStaysAsItWas) {
    present = false;
    Begin("accSensePort=1\n");
    EXPECT_TRUE(Logged("An error occured in astart.initAccSense not there"));
    port->present = true;
    Pass(2);
    EXPECT_TRUE(port->PortOpen());
    port->Unplug();
    Pass(200);
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_LT(port->opened.size(), 15u) << "the pauses grow";
    EXPECT_EQ(LinesLogged("initAccSense"), 1) << "and the log does not";
    port->present = true;
    port->carrier = false;
    Pass(61);
    EXPECT_THAT(heard, ElementsAre("pause")) << "the key was turned meanwhile";
}

TEST_F(IgnitionTest, AFlappingLineIsOffUntilItIsSteady) {
    for (const bool ends : {true, false}) {
        Begin("accSensePort=1\n");
        for (int i = 0; i < 6000; ++i) // a minute
            Line(i % 2 != 0), clock.Advance(10);
        EXPECT_THAT(heard, ElementsAre("pause")) << "nothing plays in shreds";
        Line(ends);
        clock.Advance(1000);
        EXPECT_EQ(ignition.Off(), !ends);
        EXPECT_EQ(heard.back(), ends ? "go on" : "pause");
    }
}

TEST_F(IgnitionTest, TheStarterIsNoIgnitionOffWithACrankFilter) {
    Begin("accSensePort=1\naccCrankFilter=1500\n");
    for (int i = 0; i < 3; ++i) {
        Line(false);
        clock.Advance(1400);
        Line(true);
        clock.Advance(20);
    }
    EXPECT_THAT(heard, IsEmpty());
    Line(false);
    clock.Advance(1600);
    EXPECT_THAT(heard, ElementsAre("pause"));
}

// A list that was on its way starts to play after the ignition went off.
TEST_F(IgnitionTest, WhatACommandStartsLaterIsPausedToo) {
    Begin("accSensePort=1\n");
    commands.Run([&] {
        Line(false);
        clock.Advance(200);
        EXPECT_GT(heard.size(), 3u);
    });
    clock.Advance(100);
    const auto before = heard.size();
    clock.Advance(5000);
    EXPECT_EQ(heard.size(), before) << "from then on the driver may play what he likes";
}

} // namespace
} // namespace vk::test
