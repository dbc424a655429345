// Ports on pseudo-terminals, the list over folders as the kernel makes them.
#include "platform/linux/line_watch.h"
#include "platform/linux/serial_list.h"
#include "platform/qt/qt_serial_port.h"
#include "tests/platform/polled.h"
#include "tests/sim/pty_receiver.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <unistd.h>

namespace vk::test {
namespace {

using testing::HasSubstr;

struct SerialTest : testing::Test {
    static constexpr const char* Settings = "9600,N,8,1";
    TempFolder folder;
    SerialOwners owners;
};

TEST_F(SerialTest, APortHasOneOwner) {
    PtyReceiver device(folder.File("port"));
    std::filesystem::create_symlink(folder.File("port"), folder.File("other name"));
    QtSerialPort first(owners), second(owners);
    ASSERT_TRUE(first.Open(folder.File("port"), Settings, {"the satellite receiver", false, false}))
        << first.Failure();
    EXPECT_FALSE(second.Open(folder.File("other name"), Settings, {.owner = "the remote"}));
    EXPECT_THAT(second.Failure(), HasSubstr("other name is in use by the satellite receiver"));
    EXPECT_TRUE(first.Output("x")) << "which does not harm the first";
    EXPECT_TRUE(Polled([&] { return device.Heard() == "x"; }));
    first.Close();
    EXPECT_TRUE(second.Open(folder.File("port"), Settings)) << second.Failure();
    EXPECT_EQ(second.Failure(), "");
    EXPECT_FALSE(first.Open(folder.File("none"), Settings));
    EXPECT_THAT(first.Failure(), HasSubstr("none: "));
    EXPECT_FALSE(first.Open(folder.File("port"), "9600"));
    EXPECT_THAT(first.Failure(), HasSubstr("\"9600\" is no setting"));
    EXPECT_FALSE(first.Open(folder.File("port"), Settings)) << "still the second's";
}

TEST_F(SerialTest, APortWithoutModemLinesTellsNothingAndCloses) {
    PtyReceiver device(folder.File("port"));
    QtSerialPort port(owners);
    ASSERT_TRUE(port.Open(folder.File("port"), Settings));
    std::vector<int> events;
    port.OnComm = [&](int event) { events.push_back(event); };
    port.WatchModemLines(true);
    device.Send("x");
    EXPECT_TRUE(Polled([&] { return !events.empty(); }));
    port.Close();
    QCoreApplication::processEvents();
    EXPECT_EQ(events, std::vector{int(comEvReceive)});
}

TEST(LineWatchTest, TellsEachChangeAndEndsAlsoWhileItWaits) {
    std::atomic<int> waits = 0, changes = 0, failures = 0;
    const auto wait = [&] { return ++waits <= 3 || (waits == 4 && ::pause() == 0); };
    const auto watch = [&] {
        return std::make_unique<LineWatch>(
            wait, [&] { ++changes; }, [&] { ++failures; });
    };
    auto interrupted = watch();
    EXPECT_TRUE(Polled([&] { return waits == 4; }));
    EXPECT_EQ(changes, 3);
    interrupted.reset();
    EXPECT_EQ(changes + 10 * failures, 3);
    const auto failing = watch();
    EXPECT_TRUE(Polled([&] { return failures == 1; })) << "it is polled more often";
    PtyReceiver device("/tmp/vk-line-" + std::to_string(::getpid()));
    const FileDescriptor port(
        ::open(("/tmp/vk-line-" + std::to_string(::getpid())).c_str(), O_RDWR | O_NOCTTY));
    EXPECT_FALSE(WaitForLines(port.get())) << "a driver that cannot says so at once";
}

TEST_F(SerialTest, TheListNumbersOwnPortsAsAlwaysAndPluggedOnesByName) {
    const auto tty = [&](const std::string& name, const char* type) {
        folder.MakeFolder("class/" + name + "/device");
        if (type) folder.Write("class/" + name + "/type", type);
    };
    tty("ttyS0", "4\n");
    tty("ttyS1", "0\n"); // has a name, and no device
    tty("ttyS3", "4\n");
    tty("ttyUSB0", nullptr);
    tty("ttyUSB1", nullptr);
    tty("ttyACM0", nullptr);
    folder.MakeFolder("class/tty7"); // no serial port at all
    folder.MakeFolder("dev/serial/by-id");
    const auto link = [&](const std::string& name, const std::string& device) {
        std::filesystem::create_symlink("../../" + device, folder.File("dev/serial/by-id/" + name));
    };
    link("usb-FTDI_FT232R_USB_UART_A9-if00-port0", "ttyUSB1");
    link("usb-Prolific_USB-Serial-if00-port0", "ttyUSB0");
    const auto list = [&] { return ListSerialPorts(folder.File("class"), folder.File("dev")); };
    std::vector<std::string> names;
    for (const ListedSerialPort& port : list())
        names.push_back(port.name);
    names.resize(6);
    EXPECT_THAT(names, testing::ElementsAre("Serial port ttyS0", "FTDI FT232R USB UART A9",
                                            "Prolific USB-Serial", "Serial port ttyS3",
                                            "Serial port ttyACM0", ""));
    EXPECT_EQ(list()[1].path,
              folder.File("dev/serial/by-id/usb-FTDI_FT232R_USB_UART_A9-if00-port0"));
    EXPECT_EQ(list()[3].path, folder.File("dev/ttyS3"));
}

} // namespace
} // namespace vk::test
