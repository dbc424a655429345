// The machine's power over a private system bus, with a mock of logind on it, with nobody, and with
// a bus that hangs or dies.
#include "platform/linux/power/gpio_line.h"
#include "platform/linux/power/idle_inhibitor.h"
#include "platform/linux/power/logind_backlight.h"
#include "platform/linux/power/logind_power.h"
#include "platform/linux/power/x11_gamma.h"
#include "tests/platform/desktop.h"

#include <QProcess>

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <optional>

namespace vk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* Manager = "/org/freedesktop/login1";
constexpr const char* ManagerInterface = "org.freedesktop.login1.Manager";
const QStringList Mock = {"-m", "dbusmock", "--template", "logind"};
constexpr const char* MockInterface = "org.freedesktop.DBus.Mock";

struct LogindTest : testing::Test {
    LogindTest() {
        power.onBroadcast = [this](int event, long) {
            heard.push_back(event);
            held.push_back(power.Holding());
        };
        power.onShutdown = [this] { heard.push_back(-1); };
        power.onProblem = [this](const std::string& text) { problems.push_back(text); };
    }
    ~LogindTest() override { End(logind), End(bus); }
    static void End(QProcess& program) {
        program.kill();
        program.waitForFinished();
    }
    void StartBus() {
        std::filesystem::remove(folder.File("bus"));
        bus.start("/usr/bin/dbus-daemon",
                  {"--session", "--nofork", "--address=" + QString::fromStdString(address)});
        ASSERT_TRUE(Polled([&] { return std::filesystem::exists(folder.File("bus")); }));
    }
    void StartLogind() {
        ::setenv("DBUS_SYSTEM_BUS_ADDRESS", address.c_str(), 1);
        logind.start("/usr/bin/python3", Mock);
        power.Listen();
        ASSERT_TRUE(Polled([&] { return power.Holding(); }));
    }
    /// Has the mock do something; a method that it is given is in Python.
    template<class... Arguments>
    void Mocked(const char* method, const char* types, Arguments... arguments) {
        bool done = false;
        connection.Call(
            Manager, MockInterface, method,
            [&](sd_bus_message*, const std::string& error) { done = error.empty(); }, types,
            arguments...);
        ASSERT_TRUE(Polled([&] { return done; }));
    }
    void Script(const char* method, const char* in, const std::string& code) {
        Mocked("AddMethod", "sssss", ManagerInterface, method, in, "", code.c_str());
    }
    void Signal(const char* member, int begins) {
        Mocked("EmitSignal", "sssav", ManagerInterface, member, "b", 1, "b", begins);
    }
    /// What something that is asked by `ask` tells.
    template<class Ask> static std::string Told(const Ask& ask, bool perhapsAtOnce = true) {
        std::optional<std::string> answer;
        ask([&](const std::string& refusal) { answer = refusal; });
        EXPECT_TRUE(perhapsAtOnce || !answer) << "it comes from the event loop";
        EXPECT_TRUE(Polled([&] { return answer.has_value(); }));
        return answer.value_or("none");
    }
    std::string Answer(PowerWish wish) {
        return Told([&](const Power::Answer& answer) { power.Ask(wish, answer); }, false);
    }

    TempFolder folder;
    const std::string address = "unix:path=" + folder.File("bus");
    QProcess bus, logind;
    DBusLink connection{address, 300};
    LogindPower power{connection};
    std::vector<int> heard;
    std::vector<bool> held; ///< the machine waited
    std::vector<std::string> problems;
};

TEST_F(LogindTest, TheMachineWaitsUntilSleepIsPreparedAndIsHeldAgainOnWaking) {
    StartBus();
    StartLogind();
    for (int i = 0; i < 3; ++i) {
        heard.clear(), held.clear();
        Signal("PrepareForSleep", true);
        ASSERT_TRUE(Polled([&] { return heard.size() == 2 && !power.Holding(); }));
        EXPECT_THAT(held, ElementsAre(true, true));
        Signal("PrepareForSleep", false);
        ASSERT_TRUE(Polled([&] { return heard.size() == 3 && power.Holding(); }));
        EXPECT_THAT(heard, ElementsAre(PBT_APMQUERYSUSPEND, PBT_APMSUSPEND, PBT_APMRESUMESUSPEND));
    }
    Signal("PrepareForShutdown", true);
    ASSERT_TRUE(Polled([&] { return heard.size() == 4; }));
    EXPECT_EQ(heard.back(), -1);
    EXPECT_TRUE(power.Holding()) << "until this process is gone";
    // A logind that is started anew knows of no inhibitor.
    End(logind);
    logind.start("/usr/bin/python3", Mock);
    bool listed = false;
    EXPECT_TRUE(Polled([&] {
        connection.Call(
            Manager, ManagerInterface, "ListInhibitors",
            [&](sd_bus_message* reply, const std::string&) {
                const char* what = "";
                if (reply && sd_bus_message_enter_container(reply, 'a', "(ssssuu)") > 0)
                    sd_bus_message_read(reply, "(ssssuu)", &what, nullptr, nullptr, nullptr,
                                        nullptr, nullptr);
                listed = std::string(what) == "sleep:shutdown";
            },
            "");
        return listed;
    }));
}

TEST_F(LogindTest, AsksWithoutQuestionsToTheUserAndTellsARefusal) {
    StartBus();
    StartLogind();
    const std::string file = folder.File("asked");
    for (const char* method : {"PowerOff", "Hibernate", "Suspend"})
        Script(method, "b", "open('" + file + "', 'a').write('" + method + " %d\\n' % args[0])");
    for (const PowerWish wish : {PowerWish::PowerOff, PowerWish::Hibernate, PowerWish::Suspend})
        EXPECT_EQ(Answer(wish), "");
    EXPECT_EQ(folder.Read("asked"), "PowerOff 0\nHibernate 0\nSuspend 0\n");
    Script("PowerOff", "b",
           "raise dbus.exceptions.DBusException('An update is running', "
           "name='org.freedesktop.login1.OperationInProgress')");
    EXPECT_EQ(Answer(PowerWish::PowerOff), "An update is running");
}

TEST_F(LogindTest, ABacklightIsSetByTheSession) {
    folder.Write("light/intel/max_brightness", "800\n");
    folder.Write("light/intel/brightness", "400\n");
    folder.Write("light/broken/brightness", "400\n");
    LogindBacklight light(connection, folder.File("light"));
    ASSERT_EQ(light.Read().size(), 1u);
    EXPECT_EQ(light.Read()[0].level * 10000 + light.Read()[0].most, 4000800);
    EXPECT_TRUE(LogindBacklight(connection, folder.File("none")).Read().empty());
    const auto set = [&] {
        return Told([&](const auto& answer) { light.Set("intel", 200, answer); });
    };
    EXPECT_THAT(set(), HasSubstr("not there"));
    StartBus();
    StartLogind();
    EXPECT_THAT(set(), HasSubstr("SetBrightness")) << "no session knows it";
    const std::string code =
        "open('" + folder.File("set") + "', 'a').write('%s %s %d' % (args[0], args[1], args[2]))";
    Mocked("AddObject", "ssa{sv}a(ssss)", "/org/freedesktop/login1/session/auto",
           "org.freedesktop.login1.Session", 0, 1, "SetBrightness", "ssu", "", code.c_str());
    EXPECT_EQ(set(), "");
    EXPECT_EQ(folder.Read("set"), "backlight intel 200");
}

TEST_F(LogindTest, AWatchedScreenIsIdleForNobodyUntilNothingIsAskedAnyMore) {
    struct : ScreenSaver {
        void Reset() override { ++resets; }
        int resets = 0;
    } display;
    IdleInhibitor idle(display, address, address, 300);
    idle.Reset(); // there is no bus yet
    EXPECT_EQ(display.resets, 1);
    StartBus();
    StartLogind();
    constexpr const char* Saver = "org.freedesktop.ScreenSaver";
    const std::string say = "open('" + folder.File("said") + "', 'a').write(";
    const std::string inhibit = "ret = 7; " + say + "'on ')", let = say + "'off %d ' % args[0])";
    Mocked("AddObject", "ssa{sv}a(ssss)", "/org/freedesktop/ScreenSaver", Saver, 0, 2, "Inhibit",
           "ss", "u", inhibit.c_str(), "UnInhibit", "u", "", let.c_str());
    Script("Own", "", "self.connection.request_name('" + std::string(Saver) + "')");
    connection.Call(
        Manager, ManagerInterface, "Own", [](sd_bus_message*, const std::string&) {}, "");
    EXPECT_TRUE(Polled([&] {
        idle.Reset();
        return idle.SessionHeld() && idle.MachineHeld();
    }));
    EXPECT_TRUE(folder.Read("said").starts_with("on "));
    EXPECT_TRUE(Polled([&] { return folder.Read("said").ends_with("off 7 "); }));
    EXPECT_FALSE(idle.SessionHeld() || idle.MachineHeld());
}

TEST_F(LogindTest, AMissingBusAndOneThatHangsOrDiesAreToldOnceAndFoundWhenTheyCome) {
    power.Listen();
    EXPECT_TRUE(Polled([&] { return problems.size() == 1; }));
    EXPECT_THAT(Answer(PowerWish::PowerOff), HasSubstr("not there"));
    StartBus();
    StartLogind();
    problems.clear();
    End(bus);
    EXPECT_TRUE(Polled([&] { return !power.Holding(); }));
    EXPECT_NE(Answer(PowerWish::Suspend), "");
    EXPECT_EQ(problems.size(), 1u);
    // It listens, and never answers.
    StartBus();
    ASSERT_TRUE(Polled([&] { return connection.Ready(); }));
    problems.clear();
    ::kill(static_cast<pid_t>(bus.processId()), SIGSTOP);
    DBusLink late(address, 300);
    int lost = 0;
    late.onLost = [&](const std::string&) { ++lost; };
    late.Connect();
    EXPECT_TRUE(Polled([&] { return lost == 1; }));
    ::kill(static_cast<pid_t>(bus.processId()), SIGCONT);
    EXPECT_TRUE(Polled([&] { return late.Ready(); }));
}

TEST(GpioLineTest, ALineThatIsNotThereSaysWhy) {
    GpioLine line;
    for (const char* name :
         {"", "no-such-line", "gpiochip99:3", "gpiochip0:", "gpiochip0:x", ":7"}) {
        EXPECT_FALSE(line.Open(name)) << name;
        EXPECT_THAT(line.Failure(), HasSubstr(std::string("no line ") + name));
        EXPECT_FALSE(line.IsOpen() || line.High());
    }
}

TEST(X11GammaTest, ReadsAndWritesTheRampsOfARealDisplay) {
    const Desktop desktop(false);
    X11Gamma gamma(desktop.connection);
    auto ramps = gamma.Read();
    ASSERT_FALSE(ramps.empty());
    for (auto& value : ramps[0].ramp.green)
        value = static_cast<std::uint16_t>(value / 2 + 1);
    EXPECT_TRUE(gamma.Write(ramps[0]));
    EXPECT_EQ(gamma.Read(), ramps);
    ramps[0].ramp.red.pop_back();
    EXPECT_FALSE(gamma.Write(ramps[0])) << "the server refuses it";
    EXPECT_FALSE(gamma.Write({"crtc-1", {}}));
}

} // namespace
} // namespace vk::test
