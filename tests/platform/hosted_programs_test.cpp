// Programs of many manners, really started beside the system, framed and ended.
#include "hosting/hosting.h"
#include "platform/linux/x11/x11_focus.h"
#include "tests/platform/desktop.h"
#include "tests/support/core_fixture.h"

#include <gmock/gmock.h>
#include <poll.h>

namespace vk::test {
namespace {

using testing::ElementsAre;

enum class End { Unstarted, ByItself, Politely, Asking, Killed, WithTheSystem };

struct Manner {
    std::string name, command, said, mainClass;
    std::size_t windows;
    End end;
};

const std::string Odd = VK_ODD_PROGRAM " ";
const Manner Manners[] = {
    {"a terminal", "/usr/bin/xterm -e sh -c \"touch $VK_SHELL; exec cat\"", "", "XTerm", 1,
     End::Politely},
    {"one window", Odd + "open", "", "Odd", 1, End::Politely},
    {"does not tell whose it is", Odd + "nopid open", "", "Odd", 1, End::Politely},
    {"started by a script", "/bin/sh -c \"" + Odd + "open; true\"", "", "Odd", 1, End::Politely},
    {"started by what has ended", "/bin/sh -c \"" + Odd + "open &\"", "", "Odd", 1,
     End::WithTheSystem},
    {"several windows", Odd + "open open dialog", "", "Odd", 3, End::WithTheSystem},
    {"goes on in a second window", Odd + "open wait=300 class=B open shut", "", "B", 1,
     End::Politely},
    {"asks before it closes", Odd + "ask open", "", "Odd", 1, End::Asking},
    {"hangs", Odd + "open hang", "", "Odd", 1, End::Killed},
    {"dies", Odd + "open wait=300 die", "", "", 0, End::ByItself},
    {"dies at once", Odd + "die", "dies at once has ended without a window.", "", 0,
     End::Unstarted},
    {"no window", Odd + "wait=100000", "no window shows no window and was ended.", "", 0,
     End::Unstarted},
    {"is not there", "/no/such/program", "is not there could not be started.", "", 0,
     End::Unstarted},
};

struct HostedProgramsTest : testing::TestWithParam<bool>, Desktop, CoreFixture {
    HostedProgramsTest() : Desktop(GetParam()) {
        state.ScreenWidth = 640;
        state.ScreenHeight = 480;
        ::setenv("VK_SHELL", folder.File("shell").c_str(), 1);
        clock.onEvents = clock.onSleep = [this] { LetHappen(); };
    }
    /// The clock of the test moves on when the display has told of something, or nothing has come
    /// for a while. Where nothing is going to come a second goes by at once: each look at the
    /// windows costs dozens of questions, which a busy display is slow to answer.
    void LetHappen() {
        HandleEvents();
        if (!answers) return clock.Advance(1000);
        pollfd wire{xcb_get_file_descriptor(connection), POLLIN, 0};
        ::poll(&wire, 1, 50);
        HandleEvents();
    }
    ForeignWindow Main() {
        const RunningApp* current = hosting.Current();
        for (const ForeignWindow& each : windows->List())
            if (current && each.handle == current->hWnd) return each;
        return {};
    }
    /// A terminal's size goes by its letters, and it shows itself before it can be closed: the end
    /// of its line is told to nobody before its shell runs.
    bool Framed() {
        const auto id = static_cast<xcb_window_t>(Main().handle);
        if (X11Properties(connection).Numbers(id, "WM_PROTOCOLS").empty()) return false;
        if (Main().windowClass == "XTerm" && !FileExists(folder.File("shell"))) return false;
        const WindowArea area = Main().area;
        return area.width > 620 && area.height > 450 && area.x < 10 && area.y < 10;
    }
    void CloseCurrent(End end) {
        answers = end != End::Killed;
        EXPECT_EQ(hosting.CloseCurrent(), end != End::Asking);
        answers = false;
        EXPECT_TRUE(end != End::Asking || hosting.CloseCurrent());
    }
    void See(const Manner& manner) {
        const int killed = LinesLogged("attempting to kill PID");
        answers = manner.name != "no window";
        EXPECT_EQ(hosting.ExecCmd(manner.command, manner.name, true, true), manner.said.empty());
        EXPECT_EQ(hosting.Said(), manner.said);
        const ProgramId program = hosting.Current() ? hosting.Current()->PID : 0;
        EXPECT_TRUE(manner.windows == 0 || Soon([&] {
                        return hosting.Watch() &&
                               hosting.Current()->hWndList.size() == manner.windows &&
                               Main().windowClass == manner.mainClass && Framed();
                    }));
        EXPECT_TRUE(manner.end != End::ByItself || Soon([&] { return !hosting.Watch(); }));
        if (manner.end == End::WithTheSystem) hosting.CloseAll();
        if (hosting.Current()) CloseCurrent(manner.end);
        EXPECT_TRUE(hosting.Running().empty());
        EXPECT_TRUE(Soon([&] { return !programs->AnyRunning(program); }));
        const bool byForce = manner.end == End::Killed || manner.end == End::Asking;
        EXPECT_EQ(LinesLogged("attempting to kill PID") - killed, byForce ? 1 : 0);
    }

    bool answers = true; ///< the program that is waited for
    Hosting hosting{{base, *programs, *windows}};
};

TEST_P(HostedProgramsTest, EachIsFramedAndEndsAsItsMannersAllow) {
    for (const Manner& manner : Manners) {
        SCOPED_TRACE(manner.name);
        See(manner);
    }
}

TEST_P(HostedProgramsTest, OneThatTakesAllKeysIsLedBackFrom) {
    const X11Properties at(connection);
    ASSERT_TRUE(hosting.ExecCmd(Odd + "open grab point", "Game", true, true));
    ASSERT_TRUE(Soon([&] { return KeyboardTaken(at) && PointerTaken(at); }));
    std::vector<int> keys;
    windows->onKey = [&](int key) { keys.push_back(key); };
    windows->onKeyUp = [&](int key) { keys.push_back(-key); };
    windows->HoldKeys({27, 113});
    WindowArea touched;
    windows->onKeptTouch = [&](WindowHandle, int x, int y) { touched = {x, y}; };
    Type({"mousemove", "30", "40", "click", "3", "click", "1"});
    EXPECT_TRUE(Soon([&] { return touched == WindowArea{30, 40}; }));
    Type({"key", "a", "ctrl+Escape", "F2", "Escape"});
    EXPECT_TRUE(Soon([&] { return keys.size() >= 4; }));
    EXPECT_THAT(keys, ElementsAre(113, -113, 27, -27));
    hosting.Watch();
    hosting.Collection().LetOthersOver(*hosting.Current());
    EXPECT_TRUE(Soon([&] { return !KeyboardTaken(at) && !PointerTaken(at); }));
    EXPECT_TRUE(hosting.Watch()) << "minimised, not gone";
    hosting.Collection().ComeToFront(*hosting.Current());
    EXPECT_TRUE(Soon([&] { return Viewable(hosting.Current()->hWnd); }));
    CloseCurrent(End::Politely);
    keys.clear();
    Type({"key", "F2", "Escape"});
    EXPECT_TRUE(Soon([&] { return keys.size() >= 4; }));
    EXPECT_THAT(keys, ElementsAre(113, -113, 27, -27)) << "each told once";
    keys.clear();
    Type({"keydown", "Escape"});
    EXPECT_TRUE(Soon([&] { return keys.size() >= 3; }));
    EXPECT_THAT(keys, testing::Each(27)) << "it is held";
    Type({"keyup", "Escape"});
    EXPECT_TRUE(Soon([&] { return keys.back() == -27; }));
}

INSTANTIATE_TEST_SUITE_P(Managed, HostedProgramsTest, testing::Bool());

} // namespace
} // namespace vk::test
