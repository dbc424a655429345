// The real serial port on a pseudo-terminal with a simulated receiver; time alone is not real.
#include "platform/qt/qt_serial_port.h"
#include "tests/input/remote_fixture.h"
#include "tests/sim/pty_receiver.h"
#include "tests/support/events.h"

namespace vk::test {

struct SerialPtyTest : RemoteFixture {
    SerialPtyTest() {
        settings.Write("remote", "comport", path);
        devices.serial = [this] {
            auto made = std::make_unique<QtSerialPort>(owners);
            real = made.get();
            return made;
        };
    }
    /// Sends bytes and lets the port read them, while no time passes for the receiver.
    void Send(std::string_view bytes) {
        const int before = reads;
        ASSERT_TRUE(device.Send(bytes));
        ASSERT_TRUE(Eventually([&] { return reads > before; }));
    }
    std::string path = app.File("receiver");
    PtyReceiver device{path};
    QtSerialPort* real = nullptr;
    int reads = 0; ///< events of the port
};

TEST_F(SerialPtyTest, AnIrmanWakesUpGivesCodesAndComesBackAfterItWasPulled) {
    ASSERT_TRUE(Init("IRMAN"));
    real->OnComm = [this, receiver = real->OnComm](int commEvent) {
        receiver(commEvent);
        ++reads;
    };
    for (const auto& [ms, sent] : {std::pair(99, ""), {1, "I"}, {199, "I"}, {1, "IR"}}) {
        clock.Advance(ms);
        EXPECT_TRUE(Eventually([&, text = sent] { return device.Heard() == text; })) << sent;
    }
    Send("OK"); // which is no code
    clock.Advance(110);
    EXPECT_TRUE(commands.empty());
    Send("\x0C\x22");
    clock.Advance(3);
    Send(std::string_view("\0\x11\x13\xFF", 4)); // XON, XOFF and NUL are bytes as all others
    clock.Advance(4);
    EXPECT_EQ(commands, Commands{"123401719255"});
    device.Unplug();
    EXPECT_TRUE(Eventually([&] { return Logged("Remote receiver lost: " + path); }));
    const int events = reads;
    clock.Advance(30'000);
    QCoreApplication::processEvents();
    EXPECT_EQ(reads, events) << "no event of a port that is gone";
    device.Plug();
    clock.Advance(3500);
    Send("\x01\x02");
    clock.Advance(7);
    EXPECT_EQ(commands.back(), "12");
    EXPECT_TRUE(Logged("Remote receiver found: " + path));
    EXPECT_EQ(LinesLogged("Remote receiver"), 2);
}

TEST(SerialSettingsTest, ReadsTheFourFieldsAndNothingElse) {
    for (const char* valid : {"9600,N,8,1", "2400,n,8,1", "115200,e,7,1.5"})
        EXPECT_TRUE(ParseSerialSettings(valid)) << valid;
    for (const char* bad : {"", "9600", "9600,N,8", "9600,N,8,1,1", "0,N,8,1", "9600,X,8,1",
                            "9600,N,9,1", "9600,N,8,3", "9600x,N,8,1", "99999999999,N,8,1"})
        EXPECT_FALSE(ParseSerialSettings(bad)) << bad;
    EXPECT_EQ(SerialPortName(std::string_view("3")), "/dev/ttyS2");
    EXPECT_EQ(SerialPortName(std::string_view("COM3")), "");
}

} // namespace vk::test
