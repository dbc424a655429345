// The USB-UIRT against a driver library that fails as told.
#include "input/remote/uuirt_receiver.h"
#include "platform/qt/qt_ui_thread.h"
#include "tests/input/remote_fixture.h"
#include "tests/sim/uuirtdrv/uuirt_sim.h"
#include "tests/support/events.h"
#include "tests/support/recording_screen.h"

#include <atomic>
#include <semaphore>

namespace vk::test {

constexpr int NoDevice = 0x20000001;

auto Loading(const char* file) {
    return [file](std::string& reason) { return LoadFirstLibrary({file}, reason); };
}

struct UuirtTest : RemoteFixture {
    UuirtTest() {
        device = {};
        screens.Add("velkorandum", menu);
        devices.uuirt = Loading(VK_UUIRT_SIM);
    }
    void Press(const char* code) {
        device.Button(code);
        ui.Run();
    }
    /// Starts the receiver and gives the texts that were shown, once the menu was there.
    Commands ShownAtStart(bool expected) {
        dialogs.shown.clear();
        dialogs.titles.clear();
        screens.CurrentForm = "";
        EXPECT_EQ(Init("usbuirt"), expected);
        clock.Advance(2000);
        EXPECT_EQ(dialogs.shown, Commands{}) << "it waits for the menu";
        screens.CurrentForm = "velkorandum";
        clock.Advance(1000);
        EXPECT_THAT(dialogs.titles, testing::Each("ERROR"));
        return dialogs.shown;
    }

    RecordingScreen menu;
    std::string ignored;
    /// Keeps the driver, and what it answers, loaded for the whole test.
    std::unique_ptr<LoadedLibrary> library = Loading(VK_UUIRT_SIM)(ignored);
    UuirtSim& device = *library->Get<UuirtSim* (*)()>("SimState")();
};

TEST_F(UuirtTest, EachFailureOfTheDriverHasItsText) {
    const Commands retrieve = {"Unable to retrieve uuirtdrv version!"};
    device.version = 0;
    EXPECT_EQ(ShownAtStart(false), retrieve);
    device.version = 0x00FF;
    EXPECT_EQ(ShownAtStart(false),
              Commands{"Invalid uuirtdrv version!\nThis application requires USB-UIRT API driver "
                       "DLL (UUIRTDRV.DLL) version 2.6.1 or later."});
    devices.uuirt = Loading("/nowhere/libuuirtdrv.so");
    EXPECT_EQ(ShownAtStart(false), retrieve);
    EXPECT_EQ(LinesLogged("USB-UIRT driver: /nowhere/libuuirtdrv.so"), 1);
    devices.uuirt = Loading(VK_UUIRT_SIM);
    device.version = 0x0100;
    clock.Advance(60'000);
    EXPECT_TRUE(remote.Ready()) << "it was installed meanwhile";
    EXPECT_EQ(dialogs.shown.size(), 1u);
    EXPECT_EQ(LinesLogged("Remote receiver not opened: USB-UIRT: Unable to retrieve"), 2);
    device.openError = NoDevice;
    screens.CurrentForm = "";
    EXPECT_FALSE(Init("usbuirt"));
    device.openError = 0;
    clock.Advance(4000);
    screens.CurrentForm = "velkorandum";
    clock.Advance(1000);
    EXPECT_EQ(dialogs.shown.size(), 1u) << "it has come before anybody was told";
    const std::pair<int, const char*> cases[] = {
        {NoDevice, "Unable to connect to USB-UIRT device!  Please ensure device is connected to "
                   "the computer!"},
        {0x20000002, "Unable to communicate with USB-UIRT device!  Please check connections and "
                     "try again.  If you still have problems, try unplugging and reconnecting your "
                     "USB-UIRT.  If problem persists, contact Technical Support!"},
        {0x20000003, "Unable to find USB-UIRT Driver. Please make sure driver is Installed!"},
        {0x20000004, "The firmware of the USB-UIRT device does not match its driver!"},
        {5, "Unable to initialize USB-UIRT (unknown error)!"}};
    for (const auto& [error, text] : cases) {
        device.openError = error;
        EXPECT_THAT(ShownAtStart(false), testing::ElementsAre(testing::StartsWith(text)));
    }
    device.openError = 0;
    device.info = device.config = false;
    EXPECT_EQ(ShownAtStart(true),
              (Commands{"*** ERROR Retrieving USB-UIRT Information! ***",
                        "*** ERROR Retrieving USB-UIRT Configuration Info! ***"}));
    device.info = device.config = true;
    device.takesCallback = false;
    EXPECT_EQ(ShownAtStart(false), Commands{cases[4].second});
    EXPECT_EQ(device.open, 0);
}

TEST_F(UuirtTest, CodesComeFromTheDriversThreadFilteredAndCutToSize) {
    EXPECT_EQ(ShownAtStart(true), Commands{});
    EXPECT_TRUE(Logged("FirmwareVer=2.7 ProtVer=2.5 FirmwareDate=3/15/2004"));
    EXPECT_TRUE(Logged("Config = 5 LED_RX=1 LED_TX=0 LEGACY_RX=1"));
    device.Button("F43226D9F8A4");
    EXPECT_TRUE(commands.empty()) << "not on the driver's thread";
    ui.Run();
    settings.values.UseDelay = false;
    for (const int ms : {148, 12}) { // nine tenths of 171 are 153.9
        EXPECT_EQ(commands.size(), 1u);
        clock.Advance(ms);
        Press("F43226D9F8A4");
    }
    for (const char* code : {"0123456789ABCDEF and more", "", static_cast<const char*>(nullptr)})
        Press(code);
    EXPECT_EQ(commands, (Commands{"F43226D9F8A4", "F43226D9F8A4", "0123456789ABCDEF"}));
    device.Button("A");
    remote.ClearBuff();
    device.Button("A");
    remote.CloseRemote();
    ui.Run();
    EXPECT_EQ(commands.size(), 3u) << "cleared, or the receiver has gone before it was taken";
    EXPECT_EQ(device.open, 0);
}

TEST_F(UuirtTest, APulledDeviceCostsOneLineAndComesBack) {
    device.info = false;
    EXPECT_EQ(ShownAtStart(true).size(), 1u);
    device.info = true;
    clock.Advance(10'000); // it answers late
    device.info = false;
    device.openError = NoDevice;
    clock.Advance(60'000);
    EXPECT_EQ(LinesLogged("Remote receiver lost: USB-UIRT"), 1);
    EXPECT_EQ(device.open, 0);
    device.info = true;
    device.openError = 0;
    clock.Advance(3000);
    Press("B");
    EXPECT_EQ(commands, Commands{"B"});
    EXPECT_EQ(LinesLogged("Remote receiver"), 2);
    EXPECT_EQ(dialogs.shown.size(), 1u);
}

TEST_F(UuirtTest, ADriverThatHangsCostsOneLineAndIsFoundWhenItAnswers) {
    static std::counting_semaphore<2> answers{0};
    device.onOpen = [] { answers.acquire(); };
    const auto closed = [this] { return std::atomic_ref(device.closed).load(); };
    const auto slowDisk = [this](std::string& reason) {
        answers.acquire();
        return devices.uuirt(reason);
    };
    UuirtReceiver receiver({.load = slowDisk,
                            .clock = clock,
                            .log = log,
                            .dialogs = dialogs,
                            .patienceMs = 0,
                            .mayTell = [] { return true; },
                            .ui = ui});
    EXPECT_FALSE(receiver.Start());
    clock.Advance(60'000);
    EXPECT_EQ(LinesLogged("not opened: USB-UIRT: The USB-UIRT driver does not answer!"), 1);
    answers.release(2); // it is loaded, and opens the device
    EXPECT_TRUE(Eventually([&] { return clock.Advance(3000), receiver.Ready(); }));
    receiver.Stop();
    EXPECT_TRUE(Eventually([&] { return closed() == 1; }));
    EXPECT_FALSE(receiver.Start());
    receiver.Stop(); // while it opens
    answers.release();
    EXPECT_TRUE(Eventually([&] { return closed() == 2; }));
}

TEST(QtUiThreadTest, WorkOfOtherThreadsRunsOnThisOne) {
    QtUiThread ui;
    const auto here = std::this_thread::get_id();
    std::vector<std::thread::id> ran;
    std::thread([&] { ui.Post([&] { ran.push_back(std::this_thread::get_id()); }); }).join();
    EXPECT_TRUE(ran.empty());
    EXPECT_TRUE(Eventually([&] { return !ran.empty(); }));
    EXPECT_EQ(ran, std::vector{here});
}

} // namespace vk::test
