// The receiver's answers: frames out of bytes, and what they change.
#include "tests/tuners/xm_fixture.h"
#include "tuners/xm/signal_level.h"

namespace vk::test {

using namespace std::string_literals;

TEST(InputQueue, TakesAFrameACall) {
    const std::string a = Frame(Payload(5, {0x90, 1})), b = Frame(Payload(4, {0xD2, 2}));
    const std::string info = Payload(87, {0xA5});
    const std::string told39 = "\x5A\xA5\0\x27"s + info + "\xED\xED";
    const struct {
        std::vector<std::string> arrives;
        std::vector<std::size_t> payloads; ///< sizes, 0 for none, a call each
        std::size_t left;
    } cases[] = {
        {{a}, {5, 0}, 0},
        {{a + b}, {5, 4, 0}, 0},
        {{a.substr(0, 7), a.substr(7)}, {5}, 0},
        {{a.substr(0, 1), a.substr(1)}, {5}, 0},
        {{"x", a}, {5}, 0}, // a lone wrong byte gives way
        {{"xy", a}, {0}, a.size() + 2},
        {{a.substr(0, 4) + "12345??"}, {5}, 0}, // the trailer is not looked at
        {{told39.substr(0, 45)}, {0}, 45},
        {{told39}, {87, 0}, 0},
        {{"\x5A\xA5\0\0\xED\xED"s}, {0}, 6},
        {{std::string(200000, 'x')}, {0}, 65541},
    };
    for (const auto& c : cases) {
        InputQueue queue;
        for (const std::string& bytes : c.arrives)
            queue.Add(bytes);
        for (const std::size_t size : c.payloads)
            EXPECT_EQ(queue.TakeFrame().value_or("").size(), size) << &c - cases;
        EXPECT_EQ(queue.Size(), c.left) << &c - cases;
    }
}

TEST(SignalLevel, GivesWhatIsAboveBothOthers) {
    EXPECT_EQ(TerrestrialPercent(0), 99.9);
    EXPECT_EQ(TerrestrialPercent(68), 90);
    EXPECT_EQ(TerrestrialPercent(65535), 0);
    const std::pair<std::uint8_t, double> cases[] = {{0, 0},     {6, 0},     {18, 20}, {49, 71.667},
                                                     {52, 77.5}, {54, 80},   {58, 85}, {66, 95},
                                                     {68, 99.9}, {255, 99.9}};
    for (const auto& [level, percent] : cases)
        EXPECT_NEAR(SatellitePercent(level), percent, 0.01) << int(level);
    EXPECT_EQ(SignalPercent(71.667, 20, 5), 72);
    EXPECT_EQ(SignalPercent(20, 99.9, 5), 100);
    EXPECT_EQ(SignalPercent(50, 50, 5), 0) << "the highest is shared";
    EXPECT_EQ(SignalPercent(50, 50, 60), 60);
}

struct XMMessagesTest : XMTest {
    XMMessagesTest() {
        receiver.AddChannels(9);
        Tune(4);
    }
    std::string Playing() { return State().currentArtist + "|" + State().currentTitle; }
    std::string Entry(int channel) {
        const XMChannel& c = channels.channelTable.at(static_cast<std::size_t>(channel));
        return c.name + "|" + c.artist + "|" + c.title + "|" + c.category +
               (c.valid ? "" : "|gone");
    }
    std::string Info(int channel, const std::string& artist, int s1 = 0, int s2 = 0) {
        auto info = With(Payload(73, {0xA5, s1, s2, channel}), 6, "  Name  ");
        return With(With(With(info, 24, "News"), 41, artist), 57, "T\xE9t");
    }
};

TEST_F(XMMessagesTest, ChannelInformationFillsTheTable) {
    Say(Info(200, "Ned Varga Tonigh"));
    EXPECT_EQ(Entry(200), "Name|Ned Varga Tonight|T\xC3\xA9t|News");
    EXPECT_THAT(told, ElementsAre("200"));
    Say(Info(200, "Ned Varga Tonigh"));
    EXPECT_EQ(told.size(), 1u) << "nothing has changed";
    Say(With(Info(200, "x"), 6, std::string(16, '\0')));
    EXPECT_EQ(Entry(200), "Name|x|T\xC3\xA9t|News") << "a name is not taken away";
    Say(Info(1, "y"));
    EXPECT_EQ(channels.channelTable[1].category, "") << "never of channel 1";
    for (const auto& [s1, s2] : {std::pair{2, 0}, {0, 9}}) {
        Say(Info(200, "x"));
        Say(Info(200, "x", s1, s2));
        EXPECT_EQ(Entry(200), "||||gone");
        EXPECT_EQ(told.back(), "no 200");
    }
    EXPECT_TRUE(Logged("xm channel 200 has been moved / removed"));
    channels.channelListReady = false;
    Say(Payload(73, {0xA5}));
    EXPECT_FALSE(channels.channelListReady) << "no scan is under way";
}

TEST_F(XMMessagesTest, NotificationsTellOfTheTunedChannelAndAFailedMonitorIsAskedAfter) {
    const auto told3 = [](int type, int flag) { return Payload(36, {type, 9, flag}); };
    Say(With(With(told3(0xD3, 1), 3, "The Situation Ro"), 19, "Title"));
    EXPECT_EQ(Playing(), "The Situation Room|Title");
    EXPECT_EQ(channels.channelTable[4].artist, "The Situation Room") << "not of channel 9";
    Say(With(told3(0xD4, 1), 3, "A very long artist of 33 bytes ok"));
    Say(With(told3(0xD5, 1), 3, "Ned Varga Tonigh"));
    EXPECT_EQ(Playing(), "A very long artist of 33 bytes ok|Ned Varga Tonigh");
    for (const int type : {0xD1, 0xD3, 0xD4, 0xD5})
        Say(With(told3(type, 0), 3, "Other"));
    EXPECT_EQ(Playing(), "A very long artist of 33 bytes ok|Ned Varga Tonigh");
    Say(With(told3(0xD1, 1), 3, " Name "));
    EXPECT_EQ(State().currentChannelName, " Name ");
    Say(With(With(Payload(74, {0xA2, 0, 0, 0, 1}), 5, "One "), 41, "\1Two"));
    EXPECT_EQ(Playing(), "OneTwo|");
    Say(Payload(9, {0xD6, 4, 0, 0, 0, 1, 2, 0, 77}));
    EXPECT_EQ(State().trackDuration, 258);
    EXPECT_EQ(State().trackElapsed, 77);
    Say(Payload(9, {0xD6, 0, 0, 0, 0, 9, 9, 9, 9}));
    EXPECT_EQ(State().trackDuration, 258);
    Say(Payload(4, {0xD0, 7, 0, 1}));
    clock.Advance(200);
    EXPECT_EQ(Sent("5A A5 00 04 25 08 07 00 ED ED"), 1);
}

TEST_F(XMMessagesTest, AReceiverThatGoesOffByItselfIsLeftAndFoundAgain) {
    Say(Payload(3, {0x81}));
    EXPECT_FALSE(xm().On());
    xm().PowerDown();
    EXPECT_FALSE(port->PortOpen());
    TurnOn();
}

TEST_F(XMMessagesTest, WhatIsShortOrUnknownIsALineInTheLogAtMost) {
    for (const int type : {0x80, 0x90, 0xA2, 0xA5, 0xB1, 0xC3, 0xD3, 0xD6})
        Say(Payload(3, {type, 1, 1}));
    Say(Payload(3, {0x12}));
    Say(Payload(3, {0xFF}));
    EXPECT_EQ(LinesLogged("error in frmXMCtl.ProcessMessage() Subscript out of range"), 1);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_EQ(Playing(), "Artist 4|Song 4");
    clock.Advance(20000);
    EXPECT_TRUE(xm().On());
}

TEST_F(XMMessagesTest, TheLogTellsOfEachByteWhenAsked) {
    settings.values.XMDataLogging = true;
    clock.Advance(3000);
    EXPECT_TRUE(Logged("sendbytes: " + Signal));
    EXPECT_TRUE(Logged("5 ms recv: C3 00 00 03 03"));
    xm().SetChannel(3);
    EXPECT_TRUE(xm().On());
    port->Receive(Frame(Payload(5, {0x12})) + "\x5A");
    EXPECT_TRUE(Logged("truncating inputQueue"));
    EXPECT_TRUE(Logged("new queue size: 0"));
}

} // namespace vk::test
