// The USB-UIRT against a driver library that fails as told.
#include "input/remote/uuirt_receiver.h"
#include "platform/any/qt_ui_thread.h"
#include "tests/input/remote_fixture.h"
#include "tests/support/events.h"

#include <thread>

namespace vk::test {
namespace {

constexpr int NoDevice = 0x20000001;

struct UuirtTest : RemoteFixture {
    UuirtTest() {
        Call<void()>("SimReset");
        uuirt.IRCommand = remote.IRCommand;
        settings.Write("remote", "type", "USBUIRT");
    }
    static std::unique_ptr<LoadedLibrary> LoadSim(std::string& reason) {
        return LoadFirstLibrary({VK_UUIRT_SIM}, reason);
    }
    /// The simulated driver's call `name`; it stays loaded for the whole test.
    template<class Function, class... Args>
    typename std::function<Function>::result_type Call(const char* name, Args... args) {
        const auto call = sim->Get<Function*>(name);
        EXPECT_NE(call, nullptr) << name;
        return call(args...);
    }
    /// Starts the receiver and gives the texts that were shown.
    Commands ShownAtStart(bool expected) {
        dialogs.shown.clear();
        dialogs.titles.clear();
        EXPECT_EQ(uuirt.InitRemote(), expected);
        for (const std::string& title : dialogs.titles)
            EXPECT_EQ(title, "ERROR");
        return dialogs.shown;
    }

    std::string ignored;
    std::unique_ptr<LoadedLibrary> sim = LoadSim(ignored);
    RemoteDevices driver{.serial = {}, .stream = {}, .x10 = {}, .uuirt = LoadSim};
    Remote uuirt = MakeRemote(driver);
};

TEST_F(UuirtTest, EachFailureOfTheDriverHasItsText) {
    const Commands retrieve = {"Unable to retrieve uuirtdrv version!"};
    Call<void(unsigned)>("SimVersion", 0U);
    EXPECT_EQ(ShownAtStart(false), retrieve);
    Call<void(unsigned)>("SimVersion", 0x00FFU);
    EXPECT_EQ(ShownAtStart(false),
              Commands{"Invalid uuirtdrv version!\nThis application requires USB-UIRT API driver "
                       "DLL (UUIRTDRV.DLL) version 2.6.1 or later."});
    settings.Write("remote", "type", "usbuirt");
    driver.uuirt = [](std::string& reason) {
        return LoadFirstLibrary({"/nowhere/libuuirtdrv.so"}, reason);
    };
    Remote without = MakeRemote(driver);
    EXPECT_FALSE(without.InitRemote());
    EXPECT_EQ(dialogs.shown.back(), retrieve.front());
    EXPECT_EQ(LinesLogged("USB-UIRT driver: /nowhere/libuuirtdrv.so"), 1);
    clock.Advance(60'000);
    EXPECT_EQ(dialogs.shown.size(), 2u) << "without a driver there are no further tries";
}

TEST_F(UuirtTest, EachErrorOfOpeningHasItsText) {
    const struct {
        int error;
        const char* start;
    } cases[] = {
        {NoDevice, "Unable to connect to USB-UIRT device!  Please ensure device is connected to "
                   "the computer!"},
        {0x20000002, "Unable to communicate with USB-UIRT device!  Please check connections and "
                     "try again.  If you still have problems, try unplugging and reconnecting your "
                     "USB-UIRT.  If problem persists, contact Technical Support!"},
        {0x20000003, "Unable to find USB-UIRT Driver. Please make sure driver is Installed!"},
        {0x20000004, "The firmware of the USB-UIRT device does not match its driver!"},
        {5, "Unable to initialize USB-UIRT (unknown error)!"}};
    for (const auto& c : cases) {
        Call<void(int)>("SimOpenError", c.error);
        const Commands shown = ShownAtStart(false);
        ASSERT_EQ(shown.size(), 1u);
        EXPECT_TRUE(shown[0].starts_with(c.start)) << shown[0];
    }
    Call<void(int)>("SimOpenError", 0);
    Call<void(int, int, int)>("SimAnswers", 0, 0, 1);
    EXPECT_EQ(ShownAtStart(true),
              (Commands{"*** ERROR Retrieving USB-UIRT Information! ***",
                        "*** ERROR Retrieving USB-UIRT Configuration Info! ***"}));
    Call<void(int, int, int)>("SimAnswers", 1, 1, 0);
    EXPECT_EQ(ShownAtStart(false), Commands{cases[4].start});
    EXPECT_EQ(Call<int()>("SimOpenHandles"), 0);
}

TEST_F(UuirtTest, CodesComeFromTheDriversThreadFilteredAndCutToSize) {
    EXPECT_EQ(ShownAtStart(true), Commands{});
    EXPECT_TRUE(Logged("FirmwareVer=2.7 ProtVer=2.5 FirmwareDate=3/15/2004"));
    EXPECT_TRUE(Logged("Config = 5 LED_RX=1 LED_TX=0 LEGACY_RX=1"));
    const auto button = [this](const char* code) { Call<void(const char*)>("SimButton", code); };
    button("F43226D9F8A4");
    EXPECT_TRUE(commands.empty()) << "not on the driver's thread";
    ui.Run();
    settings.values.UseDelay = false;
    for (const int ms : {148, 12}) { // nine tenths of 171 are 153.9
        EXPECT_EQ(commands.size(), 1u);
        clock.Advance(ms);
        button("F43226D9F8A4");
        ui.Run();
    }
    button("0123456789ABCDEF and more");
    button("");
    button(nullptr);
    ui.Run();
    EXPECT_EQ(commands, (Commands{"F43226D9F8A4", "F43226D9F8A4", "0123456789ABCDEF"}));
    button("A");
    uuirt.ClearBuff();
    button("A");
    uuirt.CloseRemote();
    ui.Run();
    EXPECT_EQ(commands.size(), 3u) << "cleared, or the receiver has gone before it was taken";
    EXPECT_EQ(Call<int()>("SimOpenHandles"), 0);
}

TEST_F(UuirtTest, APulledDeviceCostsOneLineAndComesBack) {
    Call<void(int, int, int)>("SimAnswers", 0, 1, 1);
    EXPECT_EQ(ShownAtStart(true).size(), 1u);
    Call<void(int, int, int)>("SimAnswers", 1, 1, 1);
    clock.Advance(10'000); // it answers late
    Call<void(int, int, int)>("SimAnswers", 0, 1, 1);
    Call<void(int)>("SimOpenError", NoDevice);
    clock.Advance(60'000);
    EXPECT_EQ(LinesLogged("Remote receiver lost: USB-UIRT"), 1);
    EXPECT_EQ(Call<int()>("SimOpenHandles"), 0);
    Call<void(int, int, int)>("SimAnswers", 1, 1, 1);
    Call<void(int)>("SimOpenError", 0);
    clock.Advance(3000);
    Call<void(const char*)>("SimButton", "B");
    ui.Run();
    EXPECT_EQ(commands, Commands{"B"});
    EXPECT_EQ(LinesLogged("Remote receiver"), 2);
    EXPECT_EQ(dialogs.shown.size(), 1u);
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

} // namespace
} // namespace vk::test
