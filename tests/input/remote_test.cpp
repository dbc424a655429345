// From the bytes on the line to the command, by settings, filter and busy flag.
#include "input/remote/reconnector.h"
#include "input/remote/repeat_filter.h"
#include "tests/input/remote_fixture.h"

#include <cmath>

namespace vk::test {

using RemoteTest = RemoteFixture;

TEST_F(RemoteTest, TheTypeAndThePortChooseWhatIsOpened) {
    const char* cases[][3] = {{"CREATIVE", "2", "/dev/ttyS1 2400,n,8,1"},
                              {"creative", "16", "/dev/ttyS15 2400,n,8,1"},
                              {"IRMAN", "1", "/dev/ttyS0 9600,n,8,1"},
                              {"other", "/dev/serial/x", "/dev/serial/x 9600,n,8,1"},
                              {"", "0", " 9600,n,8,1"}};
    for (const auto& [type, comport, opened] : cases) {
        settings.Write("remote", "comport", comport);
        Init(type);
        EXPECT_EQ(port->opened, Commands{opened}) << type;
    }
    settings.values.remoteStatus = false;
    port = nullptr;
    EXPECT_FALSE(remote.InitRemote()) << "the remote is switched off";
    EXPECT_EQ(port, nullptr);
}

TEST_F(RemoteTest, ABurstInPiecesIsOneCodeAndNoiseOrOneCutOffByACommandsEndIsNone) {
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
    commands.clear();
    onCommand = [this] {
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
    using Told = std::pair<std::size_t, int>; // in all, and of them repeats
    int heard = 0;
    remote.IRHeld = [&](const std::string& code) { heard += code == "1"; };
    const auto hold = [this](int bursts) {
        commands.clear();
        repeats = 0;
        for (int i = 0; i < bursts; ++i) {
            Burst("\x01");
            clock.Advance(80); // a burst every 100 ms
        }
        return Told(commands.size(), repeats);
    };
    EXPECT_EQ(hold(8), Told(2, 1)) << "at once and after the delay";
    EXPECT_EQ(heard, 6) << "those between tell that it is held";
    EXPECT_EQ(hold(8), Told(4, 4)) << "then at the pace, to the next burst";
    settings.values.UseDelay = false;
    clock.Advance(5000);
    EXPECT_EQ(hold(8), Told(4, 3)) << "without the delay at the pace from the start";
    onCommand = [this] { clock.Sleep(2000); }; // a command that lets no events run
    EXPECT_EQ(hold(3), Told(2, 2)) << "the button was held all the time";
    clock.Advance(1000);
    remote.learn = "learn";
    EXPECT_EQ(hold(8), Told(8, 7)) << "told apart all the same";
    settings.values.remoteStatus = false;
    EXPECT_EQ(hold(8), Told(0, 0));
}

TEST_F(RemoteTest, AReceiverThatComesAndGoesCostsOneLineEach) {
    portPresent = false;
    EXPECT_FALSE(Init("CREATIVE"));
    clock.Advance(60'000);
    EXPECT_EQ(port->opened.size(), 21u) << "one try every 3 s";
    EXPECT_EQ(LinesLogged("Remote receiver not opened: not there"), 1);
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
    EXPECT_EQ(LinesLogged("Remote receiver"), 4);
}

TEST_F(RemoteTest, ACommandMayFailOrChangeTheReceiver) {
    OpenCreative();
    X10Remote* x10 = nullptr;
    devices.x10 = [&] {
        auto made = std::make_unique<X10Remote>();
        x10 = made.get();
        return made;
    };
    onCommand = [] { throw std::runtime_error("no such row"); };
    Burst("\x01");
    EXPECT_TRUE(Logged("An error occured in astart.IRCommand no such row"));
    onCommand = [this] {
        settings.Write("remote", "type", "X10");
        EXPECT_TRUE(remote.InitRemote());
    };
    Burst("\x02");
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

/// The code comes every eighth of a second, a time that single precision holds exactly.
struct Hold {
    const char* code;
    double from, to; ///< seconds of the day
};

/// What becomes of each code: dropped, a press or a repeat.
std::string Marks(RepeatFilter& filter, const RepeatBounds& bounds,
                  const std::vector<Hold>& holds) {
    std::string marks;
    for (const Hold& hold : holds)
        for (int eighth = 0; hold.from + eighth / 8.0 <= hold.to; ++eighth)
            marks += ".PR"[int(
                filter.Accept(hold.code, std::fmod(hold.from + eighth / 8.0, 86400), bounds))];
    return marks;
}

constexpr RepeatBounds Bounds{0.25F, 1.25F}; // repeating begins from 1.25 to 1.75 s

TEST(RepeatFilterTest, LetsThroughWhatTheBoundsSay) {
    const std::tuple<const char*, RepeatBounds, std::vector<Hold>, const char*> cases[] = {
        {"after the delay at the pace", Bounds, {{"a", 10, 11.75}}, "P.........R.R.R"},
        {"taps", Bounds, {{"a", 10, 10}, {"a", 10.5, 10.625}, {"a", 11, 11}}, "PP.P"},
        {"nor taps faster", {0.5F, 0}, {{"a", 10, 10}, {"a", 10.375, 10.5}}, "P.R"},
        {"a pause ends it", Bounds, {{"a", 10, 11.25}, {"a", 11.75, 12}}, "P.........RP.."},
        {"another code at once", Bounds, {{"a", 10, 10}, {"b", 10, 10}, {"a", 10, 10.25}}, "PPP.."},
        {"midnight", Bounds, {{"a", 86399.875, 86401.125}}, "P.........R"},
        {"a clock set back", Bounds, {{"a", 50000, 50000}, {"a", 46400, 46400.125}}, "PP."},
        {"midnight after start", Bounds, {{"", 0, 0.125}}, "P."},
        {"no delay", {0.25F, 0}, {{"a", 10, 11.875}}, "P.R.R.R.R.R.R.R."},
        {"no bounds", {0, 0}, {{"a", 10, 10.125}, {"a", 10.625, 10.625}}, "PRP"},
    };
    for (const auto& [what, bounds, holds, marks] : cases) {
        RepeatFilter filter;
        EXPECT_EQ(Marks(filter, bounds, holds), marks) << what;
    }
    // After a long command the repeating begins inside of the band only.
    for (const auto& [end, marks] : {std::pair(11.5, "R.R"), {12.0, "R.."}}) {
        RepeatFilter filter;
        Marks(filter, Bounds, {{"a", 10, 10.125}});
        filter.Resume(end);
        EXPECT_EQ(Marks(filter, Bounds, {{"a", end + 0.125, end + 0.375}}), marks);
    }
}

} // namespace vk::test
