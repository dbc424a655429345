// From the bytes on the line to the command, by settings, filter and busy flag.
#include "input/remote/reconnector.h"
#include "tests/input/remote_fixture.h"

#include <stdexcept>

namespace vk::test {
namespace {

using RemoteTest = RemoteFixture;

TEST_F(RemoteTest, TheTypeAndThePortChooseWhatIsOpened) {
    const struct {
        const char *type, *comport, *opened;
    } cases[] = {{"CREATIVE", "2", "/dev/ttyS1 2400,n,8,1"},
                 {"creative", "16", "/dev/ttyS15 2400,n,8,1"},
                 {"IRMAN", "1", "/dev/ttyS0 9600,n,8,1"},
                 {"Some other", "/dev/serial/by-id/x", "/dev/serial/by-id/x 9600,n,8,1"},
                 {"", "0", " 9600,n,8,1"}};
    for (const auto& c : cases) {
        settings.Write("remote", "comport", c.comport);
        Init(c.type);
        EXPECT_EQ(port->opened, Commands{c.opened}) << c.type;
    }
    settings.values.remoteStatus = false;
    port = nullptr;
    EXPECT_FALSE(remote.InitRemote()) << "the remote is switched off";
    EXPECT_EQ(port, nullptr);
}

TEST_F(RemoteTest, AnIrmanIsWokenAndItsAnswerIsNoCode) {
    ASSERT_TRUE(Init("IRMAN"));
    const struct {
        int advanceMs;
        const char* sent;
    } steps[] = {{99, ""}, {1, "I"}, {199, "I"}, {1, "IR"}};
    for (const auto& step : steps) {
        clock.Advance(step.advanceMs);
        EXPECT_EQ(port->sent, step.sent);
    }
    port->Receive("OK");
    clock.Advance(110);
    EXPECT_TRUE(commands.empty());
    port->Receive(std::string_view("\x0C\x22\0\xFF", 4));
    clock.Advance(4);
    EXPECT_EQ(commands, Commands{"12340255"});
}

TEST_F(RemoteTest, ABurstInPiecesIsOneCodeAndNoiseIsNone) {
    OpenCreative();
    port->Receive("\x0C");
    clock.Advance(6);
    port->Receive("\x22");
    clock.Advance(6);
    EXPECT_TRUE(commands.empty()) << "the burst may go on";
    clock.Advance(1);
    EXPECT_EQ(commands, Commands{"1234"});
    Burst(std::string(65, '\x01'));
    EXPECT_EQ(commands.size(), 1u);
    Burst("\x02");
    EXPECT_EQ(commands.back(), "2") << "the line is usable right after noise";
}

TEST_F(RemoteTest, ACodeWithinACommandIsToldAndOneCutOffByItsEndIsDropped) {
    OpenCreative();
    onCommand = [this] {
        onCommand = {};
        clock.Advance(1000);
        Burst("\x02");         // while events run inside the command: who gets it decides
        port->Receive("\x03"); // cut off by the end of the command...
    };
    Burst("\x01", 7);
    Burst("\x04"); // ...of which this is the rest
    EXPECT_EQ(commands, (Commands{"1", "2"}));
    Burst("\x05");
    EXPECT_EQ(commands.back(), "5");
}

TEST_F(RemoteTest, AHeldButtonRepeatsAndTheLearningPageGetsEveryCode) {
    settings.Write("remote", "comport", "1");
    OpenCreative();
    const auto hold = [this](int bursts) {
        commands.clear();
        repeats = 0;
        for (int i = 0; i < bursts; ++i) {
            Burst("\x01");
            clock.Advance(80); // a burst every 100 ms
        }
        return commands.size();
    };
    EXPECT_EQ(hold(8), 2u) << "at once and after the delay";
    EXPECT_EQ(repeats, 1);
    EXPECT_EQ(hold(8), 4u) << "then at the pace, to the next burst";
    settings.values.UseDelay = false;
    clock.Advance(5000);
    EXPECT_EQ(hold(8), 4u) << "without the delay at the pace from the start";
    EXPECT_EQ(repeats, 3);
    onCommand = [this] {
        onCommand = {};
        clock.Sleep(2000); // a command that lets no events run
    };
    EXPECT_EQ(hold(3), 2u);
    EXPECT_EQ(repeats, 2) << "the button was held all the time";
    clock.Advance(1000);
    remote.learn = "learn";
    EXPECT_EQ(hold(8), 8u);
    EXPECT_EQ(repeats, 7) << "told apart all the same";
    settings.values.remoteStatus = false;
    EXPECT_EQ(hold(8), 0u);
}

TEST_F(RemoteTest, AReceiverThatComesAndGoesCostsOneLineEach) {
    portPresent = false;
    EXPECT_FALSE(Init("CREATIVE"));
    clock.Advance(60'000);
    EXPECT_EQ(port->opened.size(), 21u) << "one try every 3 s";
    EXPECT_EQ(app.Read("debug.log"), "") << "what is missing from the start is the caller's line";
    port->present = true;
    clock.Advance(3010);
    EXPECT_FALSE(Logged("found")) << "it has not proved to work";
    Burst("\x01");
    EXPECT_EQ(LinesLogged("Remote receiver found: /dev/ttyS1"), 1);
    port->OnComm(comEventFrame);
    for (int loosePlug = 0; loosePlug < 5; ++loosePlug) {
        port->Unplug();
        EXPECT_FALSE(remote.Ready());
        port->present = true;
        clock.Advance(9000);
        EXPECT_TRUE(remote.Ready());
    }
    EXPECT_EQ(LinesLogged("Remote: CommEvent 1004"), 1);
    EXPECT_EQ(LinesLogged("Remote: CommEvent 1011"), 5);
    EXPECT_EQ(LinesLogged("Remote receiver lost: /dev/ttyS1"), 1);
    clock.Advance(Reconnector::HoldMs);
    EXPECT_EQ(LinesLogged("found"), 2);
    Burst("\x01");
    EXPECT_EQ(commands.size(), 2u);
    remote.CloseRemote();
    EXPECT_EQ(LinesLogged("Remote receiver"), 3);
}

TEST_F(RemoteTest, ACommandMayFailOrChangeTheReceiver) {
    OpenCreative();
    onCommand = [] { throw std::runtime_error("no such row"); };
    Burst("\x01");
    EXPECT_TRUE(Logged("An error occured in astart.IRCommand no such row"));
    onCommand = [this] {
        settings.Write("remote", "type", "X10");
        EXPECT_TRUE(remote.InitRemote());
    };
    Burst("\x02");
    onCommand = {};
    x10->X10Command("A", "Play");
    EXPECT_EQ(commands, (Commands{"1", "2", "APlay"}));
    devices.x10 = [] { return nullptr; };
    EXPECT_FALSE(remote.InitRemote()) << "there is no driver";
}

TEST_F(RemoteTest, TheLearntIntervalIsWrittenInMilliseconds) {
    for (const auto& [seconds, text] :
         {std::pair(0.0F, "0"), {-1.0F, "0"}, {0.1714F, "171"}, {12.3456F, "1234"}}) {
        remote.learnInterval = seconds;
        EXPECT_EQ(remote.LearnText(), text);
    }
}

} // namespace
} // namespace vk::test
