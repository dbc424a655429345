// Sentences from a serial port, from gpsd and from a log, through their one place.
#include "navigation/engine/log_feed.h"
#include "navigation/engine/sentence_source.h"
#include "navigation/engine/serial_feed.h"
#include "navigation/navit/gpsd_feed.h"
#include "navigation/nmea.h"
#include "platform/linux/descriptor.h"
#include "tests/platform/polled.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_serial_port.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>

namespace vk::test {
namespace {

using testing::ElementsAre;

struct SentencesTest : testing::Test {
    SentencesTest() {
        source.onBytes = [this](std::string_view bytes) { heard += bytes; };
        source.onSilent = [this] { ++silences; };
        source.onLog = [this](const std::string& line) { log.push_back(line); };
    }
    std::unique_ptr<SentenceFeed> Make(const std::string& name, const std::string& settings) {
        if (name == "nobody") return nullptr;
        if (name.starts_with("log:")) return std::make_unique<LogFeed>(clock, name.substr(4));
        auto made = std::make_unique<FakeSerialPort>();
        port = made.get();
        port->present = plugged;
        ++tries;
        return std::make_unique<SerialFeed>(std::move(made), name, settings);
    }
    void Play(const std::string& text) {
        source.Open("log:" + folder.Write("drive.nmea", text), "");
        clock.Advance(2);
    }
    /// What comes within a time.
    std::string Within(int milliseconds) {
        heard.clear();
        clock.Advance(milliseconds);
        return heard;
    }

    FakeClock clock;
    TempFolder folder;
    SentenceSource source{clock, [this](const std::string& name, const std::string& settings) {
                              return Make(name, settings);
                          }};
    FakeSerialPort* port = nullptr; ///< the one made last
    bool plugged = true;
    int tries = 0, silences = 0;
    std::string heard;
    std::vector<std::string> log;
};

TEST_F(SentencesTest, ASerialPortPassesEveryByte) {
    source.Open("/dev/gps", "4800,N,8,1");
    clock.Advance(1);
    EXPECT_THAT(port->opened, ElementsAre("/dev/gps 4800,N,8,1"));
    const std::string noise("\0\xff$GPRMC,,\r", 11);
    port->Receive(noise);
    port->Receive("V\n");
    EXPECT_EQ(heard, noise + "V\n");
    source.Close();
    EXPECT_FALSE(port->PortOpen());
}

TEST_F(SentencesTest, SilenceIsToldOnceAfterThreeSeconds) {
    source.Open("/dev/gps", "4800,N,8,1");
    clock.Advance(2999);
    port->Receive("$");
    clock.Advance(2999);
    EXPECT_EQ(silences, 0);
    clock.Advance(20000);
    EXPECT_EQ(silences, 1);
    port->Receive("$");
    clock.Advance(3000);
    EXPECT_EQ(silences, 2);
}

TEST_F(SentencesTest, AReceiverThatGoesIsSilentAtOnceAndLookedForInGrowingPauses) {
    source.Open("/dev/gps", "4800,N,8,1");
    clock.Advance(1);
    plugged = false;
    port->Unplug();
    EXPECT_EQ(silences, 1);
    clock.Advance(7001); // after 1, 2 and 4 s
    EXPECT_EQ(tries, 1 + 3);
    clock.Advance(3600 * 1000);
    EXPECT_NEAR(tries, 3600.0 / 30, 6);
    EXPECT_THAT(log, ElementsAre("GPS: /dev/gps: not there"));
    plugged = true;
    clock.Advance(30000);
    port->Receive("$");
    EXPECT_THAT(log, ElementsAre("GPS: /dev/gps: not there", "GPS: /dev/gps is back"));
    source.Open("nobody", "");
    clock.Advance(100000);
    EXPECT_EQ(log.back(), "GPS: no receiver is called nobody");
}

TEST_F(SentencesTest, ALogIsPlayedAsItWasDriven) {
    const std::string first = "$GPGGA,235959.50,a\r\n$GPGSV,b\r\n$GPRMC,235959.50,A\r\n";
    const std::string second = "$GPRMC,000001.00,A\r\n", third = "$GNRMC,120000,A\r\n";
    Play(first + second + third);
    EXPECT_EQ(heard, first);
    EXPECT_EQ(Within(1490), "");
    EXPECT_EQ(Within(20), second);
    EXPECT_EQ(Within(1000), third) << "a gap of hours is a second";
    EXPECT_EQ(Within(1000), first) << "from the beginning again";
}

TEST_F(SentencesTest, AnHourOfTenSentencesASecondNeitherLagsNorGrows) {
    std::string hour;
    for (int at = 0; at < 36000; ++at) {
        std::array<char, 64> line{};
        std::snprintf(line.data(), line.size(), "$GPRMC,10%02d%02d.%d0,A,,,,,1,%d,,\r\n", at / 600,
                      at / 10 % 60, at % 10, at);
        hour += line.data();
    }
    int raised = 0;
    SentenceAssembler assembler([&](DestEvent event, const std::string& text) {
        if (event == DestEvent::GPSTrackUpdate && text == std::to_string(raised)) ++raised;
    });
    source.onBytes = [&](std::string_view bytes) { assembler.Feed(bytes); };
    Play(hour);
    for (int second = 1; second < 3600; ++second) {
        clock.Advance(1000);
        ASSERT_NEAR(raised, 10 * second, 1);
        ASSERT_EQ(clock.Running(), 2) << "the next sentence and the silence";
    }
    EXPECT_EQ(silences, 0);
}

TEST_F(SentencesTest, ALogOfNoSentencesIsNoHarm) {
    for (const char* text : {"noise without an end", "\n\n\n", "$GPRMC,12", "$GPRMC,xxxxxx,A\n"}) {
        Play(text);
        EXPECT_FALSE(Within(60000).empty()) << text;
        EXPECT_LE(heard.size(), 60000u) << text;
    }
    Play("");
    EXPECT_EQ(Within(60000), "");
}

/// gpsd on a port of its own.
struct Gpsd {
    Gpsd() : listening(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        EXPECT_EQ(::bind(listening.get(), reinterpret_cast<sockaddr*>(&address), length), 0);
        ::listen(listening.get(), 1);
        ::getsockname(listening.get(), reinterpret_cast<sockaddr*>(&address), &length);
        source = "gpsd://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    }
    bool Accepted() {
        client = FileDescriptor(::accept(listening.get(), nullptr, nullptr));
        return static_cast<bool>(client);
    }
    bool Asked() {
        std::array<char, 256> bytes;
        const ssize_t got = ::recv(client.get(), bytes.data(), bytes.size(), MSG_DONTWAIT);
        if (got > 0) wish.append(bytes.data(), static_cast<std::size_t>(got));
        return wish.ends_with('\n');
    }
    void Say(std::string_view text) const {
        ::send(client.get(), text.data(), text.size(), MSG_NOSIGNAL);
    }
    FileDescriptor listening, client;
    std::string source, wish;
};

TEST(GpsdFeed, AsksForSentencesAndPassesThemAlone) {
    Gpsd gpsd;
    GpsdFeed feed(gpsd.source);
    std::string heard;
    bool gone = false;
    feed.onBytes = [&](std::string_view bytes) { heard += bytes; };
    feed.onGone = [&] { gone = true; };
    ASSERT_TRUE(feed.Open());
    ASSERT_TRUE(Polled([&] { return gpsd.Accepted(); }));
    ASSERT_TRUE(Polled([&] { return gpsd.Asked(); }));
    EXPECT_EQ(gpsd.wish, "?WATCH={\"enable\":true,\"nmea\":true};\n");
    gpsd.Say("{\"class\":\"VERSION\",\"release\":\"3.22\"}\r\n$GPRMC,1");
    gpsd.Say("2,A\r\n" + std::string(40000, 'x'));
    gpsd.Say("\r\n!AIVDM,1\r\n");
    EXPECT_TRUE(Polled([&] { return heard.ends_with("!AIVDM,1\r\n"); }));
    EXPECT_EQ(heard, "$GPRMC,12,A\r\n!AIVDM,1\r\n");
    gpsd.client.Close();
    EXPECT_TRUE(Polled([&] { return gone; }));
    gpsd.listening.Close();
    gone = false;
    EXPECT_TRUE(!feed.Open() || Polled([&] { return gone; })) << "nobody listens any more";
    EXPECT_FALSE(GpsdFeed("gpsd://nowhere.example").Open());
}

} // namespace
} // namespace vk::test
