// From the receiver's bytes to events and to the texts of the status group.
#include "navigation/gps_status.h"
#include "navigation/nmea.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vk::test {

struct NMEATest : testing::Test {
    /// What is raised of these bytes: the event's number and its text.
    std::string Raised(std::string_view bytes) {
        raised.clear();
        assembler.Feed(bytes);
        return raised;
    }
    std::string raised;
    SentenceAssembler assembler{[this](DestEvent event, const std::string& text) {
        raised += std::to_string(static_cast<int>(event)) + "=" + text + " ";
    }};
};

TEST_F(NMEATest, ASentenceRaisesItsFieldsInTheirOrder) {
    const std::string whole =
        "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n";
    const std::string events = "2=12:35:19 GMT 1=1 3=N 4=E 5=25.32 6=084.4 7=23-03-94 ";
    EXPECT_EQ(Raised(whole), events);
    for (std::size_t cut = 1; cut < whole.size(); ++cut) {
        EXPECT_EQ(Raised(whole.substr(0, cut)), "");
        EXPECT_EQ(Raised(whole.substr(cut)), events) << "in two pieces at " << cut;
    }
}

TEST_F(NMEATest, WhatIsMangledIsRaisedAsFarAsItGoes) {
    const struct {
        const char *bytes, *raised;
    } cases[] = {
        {"$GPRMC,,V,,,,,,,,,,N*53\r\n", "2=:: GMT 1=0 3= 4= 5=0.00 6= 7=-- "},
        {"$GPRMC,123519.00,X,1,S,2,W,12.7,0,2\r\n", "2=12:35:00 GMT 3=S 4=W 5=14.96 6=0 7=2--2 "},
        {"$GNRMC,1,A,,,,,12.5,359.9,,\r\n", "2=1::1 GMT 1=1 3= 4= 5=13.81 6=359.9 7=-- "},
        {"$GPRMC,,,,,,,99999,,,\r\n", "2=:: GMT 3= 4= 5=0.00 6= 7=-- "},
        {"$GPRMC,,,,,,,fast,7\n", "2=:: GMT 3= 4= 5=0.00 6=7 7=-- "}, // whole without a CR
        {"$GPRMC\r\n", "2=:: GMT 3= 4= 5=0.00 6= 7=-- "},
        {"$GPGGA,123519,4807.038,N,01131.000,E,1,08\r\n", ""},
        {"x$GPRMC,1,A\r\n", ""},
        {"$gpRMC,1,A\r\n", ""},
        {"\n\r\n$\n$GPRM\n", ""},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Raised(each.bytes), each.raised) << each.bytes;
}

TEST_F(NMEATest, NoiseAndEndlessLinesNeitherGrowNorHideTheNextSentence) {
    EXPECT_EQ(Raised("$GPRMC,1,A" + std::string(10000, ',') + "\n"),
              "2=1::1 GMT 1=1 3= 4= 5=0.00 6= 7=-- ");
    std::mt19937 random(7);
    std::string noise(1 << 20, 0);
    for (char& byte : noise)
        if ((byte = static_cast<char>(random())) == '\n') byte = '$';
    EXPECT_EQ(Raised(noise), "");
    EXPECT_EQ(Raised("\n$GPRMC,,A\r\n"), "2=:: GMT 1=1 3= 4= 5=0.00 6= 7=-- ");
}

TEST(GPSStatusTest, TextsAndCompassWords) {
    GPSStatus status;
    EXPECT_EQ(status.Status() + status.Speed() + status.Heading(),
              "GPS: No SatsSpeed: 0.00Heading: ?");
    EXPECT_TRUE(status.Take(DestEvent::GPSStatusChange, "1"));
    EXPECT_TRUE(status.Take(DestEvent::GPSSpeedUpdate, "14.96"));
    EXPECT_FALSE(status.Take(DestEvent::GPSTimeUpdate, "12:35:19 GMT"));
    EXPECT_EQ(status.Status() + status.Speed(), "GPS: ActiveSpeed: 14.96");
    const std::pair<const char*, const char*> words[] = {
        {"0", "?"},      {"000.0", "?"},  {"", "?"},       {"n/a", "?"},
        {"0.1", "N"},    {"22.4", "N"},   {"22.5", "NE"},  {"67.5", "E"},
        {"112.5", "SE"}, {"157.5", "S"},  {"202.5", "SW"}, {"247.5", "W"},
        {"292.5", "NW"}, {"337.4", "NW"}, {"337.5", "N"},  {"-10", "N"}};
    for (const auto& [track, word] : words) {
        status.Take(DestEvent::GPSTrackUpdate, track);
        EXPECT_EQ(status.Heading(), std::string("Heading: ") + word) << track;
    }
}

} // namespace vk::test
