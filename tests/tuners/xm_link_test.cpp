// The satellite link: its frames and when they go out, the search, time-outs, the end.
#include "tests/tuners/xm_fixture.h"

namespace vk::test {

using testing::Contains, testing::HasSubstr, testing::StartsWith;

TEST_F(XMTest, OpensTheLinkFrameByFrame) {
    settings.Write("xmpcr_tuner", "port", "3");
    receiver.script.id = "        ";
    xm().Form_Load();
    port->Receive("early");
    clock.Advance(700);
    EXPECT_THAT(port->opened, ElementsAre("/dev/x 9600,N,8,1"));
    // The first step is the port's; the signal is asked for in front of the ID.
    EXPECT_THAT(frames,
                ElementsAre("2: 5A A5 00 03 74 00 01 74 0D", "142: 5A A5 00 04 74 02 01 01 74 0D",
                            "282: 5A A5 00 03 74 0B 00 74 0D", "422: " + Power, HasSubstr(Signal)));
    clock.Advance(140);
    EXPECT_EQ(Sent("5A A5 00 01 31 ED ED"), 1);
    EXPECT_EQ(State().receiverId, "VK654321");
    EXPECT_EQ(xm().page.lblXMID + xm().page.lbXMPort, "Receiver ID: VK654321XM Com Port: 3");
    EXPECT_THAT(line, ElementsAre("mute", "restore", "restore"));
    EXPECT_EQ(settings.Read("xmpcr_tuner", "port"), "3");
    EXPECT_TRUE(Logged("sending init command to: XMPCR(COM3)"));
    EXPECT_TRUE(Logged("XM PowerOn response on: XMPCR(COM3)"));
}

TEST_F(XMTest, WalksThePortsUntilOneAnswers) {
    for (std::size_t i = 0; i < ports.size(); ++i)
        ports[i] = {"P" + std::to_string(i + 1), "/dev/" + std::to_string(i + 1)};
    ports[3] = {};
    using Ports = std::set<std::string>;
    const std::tuple<std::string, std::string, Ports, std::string, std::string> cases[] = {
        {"", "", {}, "/dev/2", "1 2 "},
        {"5", "", {}, "/dev/2", "5 1 2 "},
        {"5", "P5", {"/dev/5"}, "/dev/3", "5 2 3 "}, // in use: the walk begins at COM2
        {"4", "", {}, "/dev/1", "1 "},
        {"99", "", {}, "/dev/1", "1 "},
        {"5", "P7", {}, "/dev/7", "7 "}, // has another number now
        {"5", "Gone", {}, "/dev/1", "1 "},
        {"", "", {}, "", "1 2 3 5 6 7 8 9 10 11 12 13 14 15 "}, // never COM16
    };
    for (const auto& [saved, name, inUse, answers, expected] : cases) { // numbers of ports
        settings.Write("xmpcr_tuner", "port", saved);
        settings.Write("xmpcr_tuner", "portname", name);
        port->inUse = inUse;
        port->opened.clear();
        receiverAt = answers;
        xm().Form_Load();
        for (int i = 0; i < 100 && xm().Searching(); ++i)
            clock.Advance(1000);
        std::string tried;
        for (const std::string& opened : port->opened)
            tried += opened.substr(5, opened.find(' ') - 4);
        EXPECT_EQ(tried, expected) << saved << name;
        EXPECT_EQ(xm().On(), !answers.empty());
        EXPECT_EQ(xm().page.lbXMStatus,
                  answers.empty() ? "No XMPCR Found" : "XM PowerOn response returned");
        xm().PowerDown();
    }
    EXPECT_TRUE(Logged("response timeout on port: P5 (COM5)"));
    EXPECT_TRUE(Logged("xm port value from settings invalid, scanning for receiver"));
    EXPECT_TRUE(Logged("error opening port: P5 while searching for xmpcr"));
    EXPECT_TRUE(Logged("searching: P2(COM2) for xmpcr"));
    EXPECT_EQ(LinesLogged("COM5 is not Gone any more"), 1);
}

TEST_F(XMTest, ASearchTellsWhereItIsAndCanBeStopped) {
    ports[5] = {"Other", "/dev/y"};
    receiverAt.clear();
    std::string shown;
    xm().page.changed = [&] { shown = xm().page.lbXMStatus + ", " + xm().page.lbXMPort; };
    xm().Form_Load();
    clock.Advance(500);
    EXPECT_EQ(shown, "waiting for power on response: 3503ms, XM Com Port: 3");
    clock.Advance(5000);
    EXPECT_EQ(shown, "waiting for power on response: 2507ms, XM Com Port: 6");
    xm().Form_Unload();
    clock.Advance(5);
    EXPECT_FALSE(xm().Searching() || port->PortOpen());
    xm().Form_Load();
    clock.Advance(100);
    port->Unplug();
    clock.Advance(9000);
    EXPECT_FALSE(xm().Searching());
}

TEST_F(XMTest, PollsAndScansAtItsTimes) {
    receiver.script.monitor = 0;
    receiver.AddChannels(2);
    settings.values.showXMTime = true;
    TurnOn();
    const auto scanBegins = [&] { return Sent("5A A5 00 04 25 09 00 00 ED ED"); };
    while (scanBegins() == 0 && clock.TickMs() - start < 9000)
        clock.Advance(10);
    EXPECT_NEAR(double(clock.TickMs() - start), 6000 - 140, 140) << "after the power-on answer";
    EXPECT_EQ(Sent(Signal), 2);
    clock.Advance(1000);
    EXPECT_TRUE(channels.channelListReady && Logged("channel scan completed"));
    EXPECT_EQ(channels.Channels(), (std::vector<int>{1, 2, 3}));
    EXPECT_TRUE(channels.channelTable[1].category.empty());
    EXPECT_EQ(channels.channelTable[3].title, "Song 3");
    EXPECT_TRUE(told.empty()) << "nothing is tuned";
    xm().SetChannel(2);
    clock.Advance(1000);
    Forget();
    clock.Advance(20000);
    EXPECT_NEAR(double(Sent("5A A5 00 04 25 08 02 00 ED ED")), 4, 1);
    EXPECT_NEAR(double(Sent(Signal)), 9, 1);
    EXPECT_NEAR(double(scanBegins()), 4, 1);
}

TEST_F(XMTest, SelectsAChannelAndFollowsItsSong) {
    receiver.AddChannels(8);
    TurnOn();
    EXPECT_TRUE(xm().SetChannel(5));
    EXPECT_FALSE(xm().SetChannel(6)) << "the first is unanswered";
    clock.Advance(1000);
    EXPECT_EQ(Sent("5A A5 00 06 10 02 05 00 00 01 ED ED"), 1);
    ASSERT_GE(frames.size(), 3u);
    EXPECT_THAT(frames[1], HasSubstr("5A A5 00 06 50 05 01 01 01 01 ED ED"));
    EXPECT_THAT(frames[2], HasSubstr("5A A5 00 04 25 08 05 00 ED ED"));
    EXPECT_EQ(State().currentArtist + ", " + State().currentTitle, "Artist 5, Song 5");
    EXPECT_EQ(channels.channelTable[5].title, "Song 5");
    EXPECT_EQ(State().currentChannelName, "Channel 5");
    EXPECT_THAT(told, Contains("5 shown"));
    EXPECT_NEAR(State().trackElapsed, 12, 1);
    const auto elapsed = State().trackElapsed;
    clock.Advance(3000);
    EXPECT_NEAR(State().trackElapsed, elapsed + 3, 1);
    EXPECT_EQ(Sent("5A A5 00 04 25 08 05 00 ED ED"), 1) << "it tells by itself: no poll";
    receiver.script.refused = {6};
    EXPECT_TRUE(xm().SetChannel(6));
    clock.Advance(1000);
    EXPECT_EQ(State().currentChannel, 5);
    EXPECT_EQ(receiver.tuned, 5);
    EXPECT_FALSE(xm().SetChannel(300));
    EXPECT_TRUE(Logged("error in frmXMCtl.SetChannel() Overflow"));
}

TEST_F(XMTest, FramesMayComeInPiecesTogetherOrOfAWrongLength) {
    receiver.AddChannels(8);
    TurnOn();
    const SimScript lines[] = {{.delayMs = 5, .pieceSize = 3},
                               {.delayMs = 5, .pieceSize = 3, .merge = true},
                               {.delayMs = 5, .tells39 = true}};
    for (int channel = 2; const SimScript& kind : lines) {
        receiver.script = kind;
        EXPECT_TRUE(xm().SetChannel(channel));
        clock.Advance(3000);
        EXPECT_EQ(State().currentArtist, "Artist " + std::to_string(channel++));
    }
}

TEST_F(XMTest, AsksOnceMoreThenGivesTheLinkUpUntilItIsTurnedOffAndOn) {
    RecordingScreen player;
    screens.Add("playmp3", player);
    screens.CurrentForm = "playmp3";
    receiver.AddChannels(4);
    Tune(3);
    plays = true;
    receiver.script.silent = true;
    port->Receive("\x01\x02 noise that begins no frame");
    clock.Advance(7000);
    EXPECT_EQ(LinesLogged("XM receive timeout - clearing queues and retrying"), 1);
    EXPECT_EQ(Sent("5A A5 00 06 10 02 03 00 00 01 ED ED"), 1);
    EXPECT_EQ(player.Count("doquit"), 0);
    clock.Advance(9000);
    EXPECT_EQ(LinesLogged("XM receive timeout has occured - aborting"), 1);
    EXPECT_EQ(player.Count("doquit"), 1);
    EXPECT_TRUE(xm().Dead() && !xm().On());
    Forget();
    receiver.script.silent = false;
    xm().SetChannel(4);
    xm().SetStandbyXM();
    xm().Form_Load();
    clock.Advance(60000);
    EXPECT_THAT(frames, testing::IsEmpty());
    xm().PowerDown();
    TurnOn();
    EXPECT_TRUE(xm().SetChannel(4));
}

TEST_F(XMTest, ALostAnswerIsAskedForAgain) {
    receiver.AddChannels(4);
    const std::string tune = "5A A5 00 06 10 02 03 00 00 01 ED ED";
    for (const auto& [lost, tuned, asked] : // by the retry; the first while notifications flow
         {std::tuple(0x90, true, tune), {0xC3, true, tune}, {0xC3, false, Signal}}) {
        tuned ? Tune(3) : TurnOn();
        receiver.script.lost = {{lost, 1}};
        if (lost == 0x90) xm().SetChannel(4);
        for (int i = 0; i < 12 && !Logged("clearing queues and retrying"); ++i) {
            clock.Advance(1000);
            if (lost == 0x90) receiver.Notify();
        }
        EXPECT_TRUE(Logged("clearing queues and retrying"));
        EXPECT_GE(Sent(asked), 1);
        EXPECT_TRUE(xm().SetChannel(2));
        clock.Advance(1000);
        EXPECT_EQ(State().currentChannel, 2);
        xm().PowerDown();
        app.Write("debug.log", "");
    }
}

TEST_F(XMTest, PowerDownOvertakesAllAndSaves) {
    settings.Write("xmpcr_tuner", "commandInterval", "200");
    receiver.AddChannels(3);
    TurnOn();
    clock.Advance(9000);
    receiver.script.delayMs = 300;
    xm().SetChannel(2); // unanswered when the end comes
    Forget();
    const auto began = clock.TickMs();
    xm().PowerDown();
    EXPECT_NEAR(double(clock.TickMs() - began), 2300, 30);
    EXPECT_THAT(frames.back(), HasSubstr("5A A5 00 02 01 00 ED ED"));
    EXPECT_FALSE(port->PortOpen() || receiver.on || State().receiverOn);
    EXPECT_THAT(line, ElementsAre("mute", "restore", "restore"));
    EXPECT_THAT(app.Read("xm_channels.dat"), StartsWith("\x01XM Preview"));
    EXPECT_EQ(settings.Read("xmpcr_tuner", "timeout"), "4000");
    EXPECT_EQ(settings.Read("xmpcr_tuner", "commandInterval"), "200");
    clock.Advance(20000);
    EXPECT_EQ(frames.size(), 1u) << "nothing follows";
    channels = {};
    TurnOn();
    EXPECT_TRUE(channels.channelListReady) << "from the file";
    receiver.script.silent = true;
    clock.Advance(2500); // a poll is unanswered
    pump.Close();        // a quit waits for nothing
    Forget();
    xm().PowerDown();
    EXPECT_THAT(frames, ElementsAre("0: 5A A5 00 02 01 00 ED ED"));
    EXPECT_FALSE(port->PortOpen());
}

TEST_F(XMTest, StandbyIsQuietAndEndsTheScan) {
    receiver.AddChannels(100);
    Tune(3);
    clock.Advance(6000);
    Forget();
    xm().SetStandbyXM();
    clock.Advance(160);
    EXPECT_EQ(Sent(Power), 1);
    EXPECT_THAT(line, ElementsAre("mute", "restore"));
    EXPECT_FALSE(State().standbyPending);
    receiver.script.silent = true; // a retry must not wake it
    clock.Advance(7000);
    receiver.script.silent = false;
    clock.Advance(2000);
    EXPECT_EQ(Sent("5A A5 00 06 10 02 03 00 00 01 ED ED"), 0);
    EXPECT_TRUE(xm().On());
}

TEST_F(XMTest, APulledPortCostsOneLineAndIsFoundAtAnotherNumber) {
    receiver.AddChannels(3);
    Tune(2);
    app.Write("debug.log", "");
    port->Unplug();
    clock.Advance(30000);
    EXPECT_EQ(LinesLogged(" - "), 1) << app.Read("debug.log");
    EXPECT_TRUE(Logged("frmXMCtl.comCTL_OnComm: unrecoverable serial error, abort forced"));
    EXPECT_FALSE(xm().On() || xm().Dead());
    EXPECT_EQ(line.back(), "restore");
    EXPECT_TRUE(FileExists(app.File("xm_channels.dat")));
    port->present = true;
    ports[7] = {"XMPCR", receiverAt = "/dev/other"};
    ports[2] = {"Modem", "/dev/x"};
    TurnOn();
    EXPECT_EQ(settings.Read("xmpcr_tuner", "port"), "8");
    receiver.script.bytesToLive = 40; // dies in the middle of a frame
    xm().SetChannel(2);
    clock.Advance(40000);
    EXPECT_TRUE(xm().Dead());
}

TEST_F(XMTest, ScansTwoHundredChannelsAtTheLinksOwnPace) {
    receiver.AddChannels(199);
    TurnOn();
    while (frames.empty() || !frames.back().ends_with("25 09 00 00 ED ED"))
        clock.Advance(10);
    const auto began = clock.TickMs();
    while (!channels.channelListReady && clock.TickMs() - began < 60000)
        clock.Advance(10);
    EXPECT_EQ(channels.Channels().size(), 200u);
    // A question an interval, and a few polls that go in between.
    EXPECT_LE(clock.TickMs() - began, (200 + 16) * 140);
}

// Frames of any content, whole and cut in two, and bytes that block the line until the next retry;
// VK_NOISE tells how many.
TEST_F(XMTest, NoiseNeitherStopsTheSystemNorTheNextStart) {
    const char* count = std::getenv("VK_NOISE");
    receiver.AddChannels(3);
    Tune(2);
    std::uint32_t seed = 7;
    const auto next = [&] { return (seed = seed * 1664525 + 1013904223) >> 16; };
    int heeded = 0, blocked = 0, restarts = 0;
    for (int i = 0, end = count ? std::atoi(count) : 20000; i < end; ++i) {
        std::string bytes = Payload(next() % 100, {static_cast<int>(0x80 + next() % 90)});
        for (std::size_t at = 1; at < bytes.size(); ++at)
            bytes[at] = static_cast<char>(next());
        if (next() % 100 == 0) {
            port->Receive(next() % 2 == 0 ? bytes : Frame(bytes).substr(0, bytes.size() / 2));
            clock.Advance(static_cast<int>(next() % 10000));
            ++blocked;
        } else {
            const std::string frame = Frame(bytes);
            const std::size_t cut = next() % 2 == 0 ? frame.size() : next() % frame.size();
            port->Receive(frame.substr(0, cut));
            port->Receive(frame.substr(cut));
        }
        if (i % 50 == 0) clock.Advance(150);
        heeded += static_cast<int>(std::exchange(told, {}).size());
        frames.clear();
        if (xm().On() || xm().Searching()) continue;
        xm().PowerDown();
        TurnOn();
        ++restarts;
    }
    std::printf("%d told, %d blocked, %d restarts\n", heeded, blocked, restarts);
    EXPECT_GT(heeded, 100);
    EXPECT_TRUE(dialogs.shown.empty());
    clock.Advance(30000);
    xm().PowerDown();
    TurnOn();
}

} // namespace vk::test
