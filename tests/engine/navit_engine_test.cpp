// The real engine without a window, on a map of the invented town.
#include "navigation/engine/log_feed.h"
#include "navigation/engine/map_file.h"
#include "navigation/navit/navit_engine.h"
#include "platform/files.h"
#include "platform/qt/qt_clock.h"
#include "tests/engine/demo_town.h"
#include "tests/platform/polled.h"

#include <gmock/gmock.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <tuple>

namespace vk::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct NavitEngineTest : testing::Test {
    NavitEngineTest() { Make({.folder = home.File("navigation")}); }
    /// `pingMs`: long enough that a busy machine is not taken for a hung engine.
    void Make(const NavitPlace& place, int pingMs = 5000) {
        engine.reset();
        const MakeSentenceFeed feeds = [this](const std::string& source, const std::string&) {
            return std::make_unique<LogFeed>(clock, source.substr(source.find(':') + 1));
        };
        engine = std::make_unique<NavitEngine>(
            clock, feeds, place, NavitTimes{.start = 60000, .ping = pingMs},
            NavitPauses{.first = 1, .longest = 50, .missing = 3'600'000, .map = 5});
        engine->onLog = [this](const std::string& text) { log += text + "\n"; };
    }
    void Start(const std::string& source = {}) {
        engine->Start({.map = DemoTown::Get().Map(), .source = source});
        EXPECT_TRUE(Becomes(EngineState::Running)) << log;
    }
    bool Becomes(EngineState state) {
        return Polled([&] { return engine->State() == state; });
    }
    RouteStatus Route(const Address& to) {
        std::optional<RouteStatus> status;
        engine->CalculateRoute(to, [&](RouteStatus told) { status = told; });
        EXPECT_TRUE(Polled([&] { return status.has_value(); }));
        return status.value_or(RouteFailed);
    }
    std::optional<GeoPosition> Position() {
        std::optional<std::optional<GeoPosition>> position;
        engine->Position([&](std::optional<GeoPosition> told) { position = told; });
        EXPECT_TRUE(Polled([&] { return position.has_value(); }));
        return position.value_or(std::nullopt);
    }
    /// Receives a fix at a place, until the engine knows it.
    void DriveTo(const GeoPosition& place) {
        const auto angle = [](double degrees, int width) {
            std::array<char, 32> text{};
            const int whole = static_cast<int>(degrees);
            std::snprintf(text.data(), text.size(), "%0*d%07.4f", width, whole,
                          (degrees - whole) * 60);
            return std::string(text.data());
        };
        std::string sentences;
        for (const char* kind : {"GPGGA,", "GPRMC,"}) {
            const bool fix = std::string_view(kind) == "GPGGA,";
            std::string body = kind + std::string("100000.00,") + (fix ? "" : "A,") +
                               angle(place.latitude, 2) + ",N," + angle(place.longitude, 3) +
                               (fix ? ",E,1,09,0.9,240.0,M,47.0,M,," : ",E,0.50,90.0,140626,,,A");
            unsigned check = 0;
            for (const char c : body)
                check ^= static_cast<unsigned char>(c);
            std::array<char, 8> sum{};
            std::snprintf(sum.data(), sum.size(), "*%02X\r\n", check);
            sentences += "$" + body + sum.data();
        }
        const std::string file = home.File("drive.nmea");
        ASSERT_TRUE(ReplaceFile(file, sentences));
        engine->Start({.map = DemoTown::Get().Map(), .source = "log:" + file});
        engine->OpenPort();
        EXPECT_TRUE(Becomes(EngineState::Running)) << log;
        EXPECT_TRUE(Polled([&] { return Position().has_value(); }));
    }
    /// A program that the engine consists of, by what its command line begins with.
    pid_t Process(const std::string& program) const {
        for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
            std::ifstream file(entry.path() / "cmdline");
            std::stringstream line;
            line << file.rdbuf();
            if (line.str().starts_with(program) &&
                line.str().find(home.Path()) != std::string::npos)
                return std::stoi(entry.path().filename());
        }
        return 0;
    }

    QtClock clock;
    TempFolder home;
    std::string log;
    std::unique_ptr<NavitEngine> engine;
};

const GeoPosition OnMainStreet{48.900054, 9.101367};

TEST_F(NavitEngineTest, FindsAddressesAsTheyAreTyped) {
    Start();
    const std::pair<Address, RouteStatus> table[] = {
        {{"Marlingen", "Hauptstraße", "12"}, RouteFound},
        {{"MARLINGEN", "HAUPTSTRASSE", "12"}, RouteFound},
        {{"marlingen", "muhlweg", ""}, RouteFound},
        {{"Oberau", "", ""}, RouteFound},
        {{"Steinach", "Am Anger", "7"}, RouteFound},
        {{"Marlingen", "Hauptstraße", "999"}, AddressNotFound},
        {{"Marlingen", "Am Anger", "7"}, AddressNotFound},
        {{"Nowhere", "Hauptstraße", "1"}, AddressNotFound},
        {{"", "Hauptstraße", "1"}, AddressNotFound},
        {{"\"<&\x01", "';--", "%s%n"}, AddressNotFound}};
    for (const auto& [address, status] : table)
        EXPECT_EQ(Route(address), status) << address.city << " " << address.street;
}

TEST_F(NavitEngineTest, RoutesFromWhereTheVehicleIs) {
    DriveTo(OnMainStreet);
    EXPECT_NEAR(Position()->latitude, OnMainStreet.latitude, 1e-5);
    EXPECT_NEAR(Position()->longitude, OnMainStreet.longitude, 1e-5);
    EXPECT_EQ(Route({"Niederau", "Weidenweg", "4"}), RouteFound);
    EXPECT_TRUE(Polled([&] { return engine->ShowCurrentRoute(); }));
    engine->CancelRoute();
    EXPECT_TRUE(Polled([&] { return !engine->ShowCurrentRoute(); }));
}

TEST_F(NavitEngineTest, TellsTheNearestHouseNumber) {
    DriveTo(OnMainStreet);
    std::optional<GeoAddress> address;
    engine->ReverseGeocode(OnMainStreet, [&](const std::optional<GeoAddress>& told) {
        address = told.value_or(GeoAddress{});
    });
    ASSERT_TRUE(Polled([&] { return address.has_value(); }));
    EXPECT_THAT(*address, ElementsAre("35", "Hauptstraße", "Marlingen", "", "71001"));
}

TEST_F(NavitEngineTest, ComesBackWithItsDestinationWhateverHappensToIt) {
    Make({.folder = home.File("navigation")}, 200);
    DriveTo(OnMainStreet);
    // So impatient, it may be started again in between.
    EXPECT_TRUE(Polled([&] { return Route({"Steinach", "Am Anger", "7"}) == RouteFound; }));
    const std::tuple<const char*, int, const char*> table[] = {
        {"/usr/bin/navit", SIGKILL, "is started again"},
        {"/usr/bin/navit", SIGSEGV, "is started again"},
        {"/usr/bin/navit", SIGSTOP, "does not answer"},
        {"/usr/bin/dbus-daemon", SIGKILL, "is started again"}};
    for (const auto& [program, signal, words] : table) {
        pid_t process = 0;
        EXPECT_TRUE(Polled([&, path = program] { return (process = Process(path)) > 0; }));
        log.clear();
        ::kill(process, signal);
        EXPECT_TRUE(Polled([&, told = words] { return log.find(told) != std::string::npos; }))
            << signal << log;
        EXPECT_TRUE(Polled([&] { return engine->ShowCurrentRoute(); })) << signal << log;
        EXPECT_EQ(engine->Complaint(), "");
    }
    engine->CancelRoute();
    EXPECT_TRUE(Polled(
        [&] { return engine->State() == EngineState::Running && !engine->ShowCurrentRoute(); }));
}

TEST_F(NavitEngineTest, QuestionsAreAnsweredWhenItDiesMeanwhile) {
    Start();
    std::optional<RouteStatus> status;
    ::kill(Process("/usr/bin/navit"), SIGKILL);
    engine->CalculateRoute({"Oberau", "", ""}, [&](RouteStatus told) { status = told; });
    EXPECT_TRUE(Polled([&] { return status.has_value(); }));
    EXPECT_EQ(status, RouteFailed);
}

TEST_F(NavitEngineTest, SaysWhatIsMissingAndComesWhenItIsThere) {
    Make({.program = home.File("navit"), .folder = home.File("navigation")});
    EXPECT_EQ(engine->Installed(), "");
    const std::string map = home.File("maps/town.bin");
    engine->Start({.map = map, .source = ""});
    EXPECT_TRUE(Becomes(EngineState::MissingProgram));
    EXPECT_THAT(engine->Complaint(), HasSubstr("not installed"));
    EXPECT_EQ(Route({"Oberau", "", ""}), RouteFailed);
    std::filesystem::create_symlink("/usr/bin/navit", home.File("navit"));
    engine->OpenPort(); // somebody looks at the map: it is tried long before its time
    EXPECT_TRUE(Becomes(EngineState::NoMap));
    EXPECT_THAT(engine->Complaint(), HasSubstr(map));
    home.MakeFolder("maps");
    home.Write("maps/town.bin", ReadWholeFile(DemoTown::Get().Map())->substr(0, 9000));
    home.Write("maps/whole.bin", *ReadWholeFile(DemoTown::Get().Map()));
    EXPECT_FALSE(IsMapFile(map)); // torn
    std::filesystem::rename(home.File("maps/whole.bin"), map);
    EXPECT_TRUE(Becomes(EngineState::Running)) << log;
    EXPECT_NE(engine->Installed(), "");
    const pid_t navit = Process(home.File("navit"));
    EXPECT_GT(navit, 0);
    engine->Stop();
    EXPECT_TRUE(Polled([&] { return ::kill(navit, 0) != 0; }));
    EXPECT_EQ(engine->State(), EngineState::Stopped);
}

TEST_F(NavitEngineTest, AFolderThatTakesNoFilesIsSaid) {
    home.Write("file", "");
    Make({.folder = home.File("file/below")});
    engine->Start({.map = DemoTown::Get().Map(), .source = ""});
    EXPECT_TRUE(Polled([&] { return log.find("cannot write") != std::string::npos; }));
    EXPECT_EQ(engine->State(), EngineState::Restarting);
}

} // namespace
} // namespace vk::test
