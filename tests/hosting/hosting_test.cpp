// Programs beside the system on a desktop of fakes, and the tool bar over them.
#include "core/text.h"
#include "hosting/command_line.h"
#include "hosting/tool_bar.h"
#include "tests/sim/fake_windows.h"
#include "tests/sim/recording_programs.h"
#include "tests/support/core_fixture.h"
#include "tests/support/recording_screen.h"
#include "tests/support/sound_card.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

using testing::ElementsAre;

struct RecordingBar : ToolBarView {
    void ShowAtFront() override { shown = true; }
    void HideBar() override { shown = false; }
    void ShowText(const std::string& words) override { text = words; }
    void MoveTo(bool upper) override { top = upper; }
    bool AtTop() const override { return top; }
    void EnterButtons() override { ++entered; }
    void TakeTouch(WindowHandle window, int, int) override { kept = window; }
    bool shown = false, top = false;
    int entered = 0;
    WindowHandle kept = 0;
    std::string text;
};

struct HostingTest : testing::Test, CoreFixture {
    SoundCard sound{*this};
    RecordingPrograms programs;
    FakeForeignWindows windows;
    Surfaces surfaces;
    BrowserState browser;
    KeyMap keys;
    RecordingScreen list, menu;
    RecordingPlayerScreen player;
    TransportLink transport;
    int saved = 0, looked = 0;
    std::vector<std::string> pressed;
    Hosting hosting{{base, programs, windows}};
    RecordingBar view;
    ToolBar bar{{.base = base,
                 .hosting = hosting,
                 .windows = windows,
                 .surfaces = surfaces,
                 .browser = browser,
                 .loudness = sound.loudness,
                 .transport = transport,
                 .keys = keys,
                 .SaveAudioData = [this] { ++saved; },
                 .press = [this](const std::string& code) { pressed.push_back(code); },
                 .checkDaylight = [this] { ++looked; }},
                view};

    HostingTest() {
        state.ScreenWidth = 800;
        state.ScreenHeight = 480;
        settings.values.AppSize = 1;
        screens.Add("playlists", list, list);
        screens.Add(HomeScreen, menu, menu);
        transport.Connect(&player);
        list.onCall = [this](const std::string& call) {
            if (call == "ReShow") screens.CurrentForm = "playlists";
        };
    }
    /// Starts a program whose first window comes after a while; the window.
    WindowHandle Start(const std::string& name, bool maximize = true, bool force = false) {
        WindowHandle opened = 0;
        const std::int64_t due = clock.TickMs() + 300;
        clock.onEvents = [&] {
            if (opened == 0 && clock.TickMs() >= due)
                opened = windows.Open(static_cast<ProgramId>(programs.started.size()));
        };
        EXPECT_TRUE(hosting.ExecCmd("/bin/sh -c x", name, maximize, force));
        clock.onEvents = {};
        EXPECT_EQ(hosting.Current()->hWnd, opened);
        return opened;
    }
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const RunningApp& each : hosting.Running())
            names.push_back(each.name);
        return names;
    }
    std::string Front() const { return screens.CurrentForm.Text(); }
};

TEST_F(HostingTest, AStartedProgramIsFramedAtOnceAndHasARecord) {
    const WindowHandle first = Start("Maps");
    EXPECT_LE(clock.TickMs(), 320) << "the window tells by itself";
    EXPECT_EQ(programs.started[0].program, "/bin/sh");
    EXPECT_THAT(programs.started[0].arguments, ElementsAre("-c", "x"));
    EXPECT_EQ(programs.started[0].show, 1);
    EXPECT_EQ(windows.Find(first)->area, (WindowArea{0, 0, 800, 480}));
    Start("Clock", false);
    EXPECT_EQ(programs.started[1].show, 3);
    EXPECT_EQ(windows.list.back().area.width, 100) << "as it likes";
    EXPECT_THAT(Names(), ElementsAre("Maps", "Clock"));
    EXPECT_TRUE(Logged("launched application, OpenProgram() returned: 1"));
    EXPECT_TRUE(Logged("Ext App Launched (maximized) - Maps"));
    EXPECT_TRUE(Logged("Ext App Launched - Clock"));
    EXPECT_TRUE(hosting.StartOrResume({"/bin/sh -c x", "Maps", true, false}));
    EXPECT_EQ(programs.started.size(), 2u) << "it runs already";
    EXPECT_EQ(hosting.Current()->name, "Maps");
}

TEST_F(HostingTest, WhatShowsNoWindowIsEndedAndLeavesNoRecord) {
    programs.canStart = false;
    EXPECT_FALSE(hosting.ExecCmd("/none", "None", true, false));
    EXPECT_EQ(hosting.Said(), "None could not be started.");
    programs.canStart = true;
    clock.onEvents = [this] { programs.running.clear(); };
    EXPECT_FALSE(hosting.ExecCmd("/bin/sh", "Dies", true, false));
    EXPECT_EQ(hosting.Said(), "Dies has ended without a window.");
    clock.onEvents = {};
    const std::int64_t begun = clock.TickMs();
    EXPECT_FALSE(hosting.ExecCmd("/bin/sh", "Silent", true, false));
    EXPECT_GE(clock.TickMs() - begun, Launcher::PatienceMs);
    clock.onEvents = [this] { pump.EndAll(); };
    EXPECT_FALSE(hosting.ExecCmd("/bin/sh", "Slow", true, false));
    EXPECT_EQ(hosting.Said(), "Slow was stopped.");
    EXPECT_TRUE(hosting.Running().empty() && programs.running.empty());
}

TEST_F(HostingTest, AProgramIsFollowedFromWindowToWindowAndDroppedWithTheLast) {
    const WindowHandle first = Start("Maps", true, true);
    const WindowHandle question = windows.Open(1, "a dialog", false);
    EXPECT_TRUE(hosting.Watch());
    EXPECT_EQ(hosting.Current()->hWnd, first) << "a dialog is no main window";
    EXPECT_EQ(windows.Find(question)->area.width, 100);
    windows.Shut(question);
    windows.Shut(first);
    EXPECT_TRUE(hosting.Watch()) << "the next may follow";
    const WindowHandle second = windows.Open(1);
    clock.Advance(Hosting::GraceMs);
    EXPECT_TRUE(hosting.Watch());
    EXPECT_EQ(hosting.Current()->hWnd, second);
    EXPECT_EQ(windows.Find(second)->area.width, 800);
    windows.Find(second)->area.width = 700;
    EXPECT_TRUE(hosting.Watch());
    EXPECT_TRUE(Logged("attempting to maximize hWnd " + std::to_string(second)));
    windows.stubborn = true;
    windows.Find(second)->area.width = 650;
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(hosting.Watch());
    EXPECT_EQ(LinesLogged("attempting to maximize"), 2) << "it will not have it";
    windows.Shut(second);
    EXPECT_TRUE(hosting.Watch());
    clock.Advance(Hosting::GraceMs);
    EXPECT_FALSE(hosting.Watch());
    EXPECT_TRUE(hosting.Running().empty());
    EXPECT_TRUE(programs.Running(1)) << "it may still be saving";
    windows.Open(1);
    EXPECT_TRUE(hosting.StartOrResume({"/bin/sh -c x", "Maps", true, false}));
    EXPECT_EQ(programs.started.size(), 1u) << "it had not gone after all";
    EXPECT_TRUE(hosting.CloseCurrent());
    hosting.Sweep();
    EXPECT_FALSE(hosting.Loaded("Maps")) << "ended by the user";
    hosting.CloseAll();
    EXPECT_FALSE(programs.Running(1));
}

TEST_F(HostingTest, ClosingGoesThroughThreeStages) {
    const WindowHandle polite = Start("Polite");
    windows.onClose = [this](WindowHandle which) { windows.Shut(which); };
    std::int64_t begun = clock.TickMs();
    EXPECT_TRUE(hosting.CloseCurrent());
    EXPECT_EQ(windows.Done("close"), "close " + std::to_string(polite));
    EXPECT_LE(clock.TickMs() - begun, 100);
    EXPECT_TRUE(programs.killed.empty());
    Start("Kept");
    windows.onClose = {};
    const WindowHandle first = Start("Deaf"), second = windows.Open(3);
    begun = clock.TickMs();
    EXPECT_TRUE(hosting.CloseCurrent());
    const std::string one = std::to_string(first), two = std::to_string(second);
    EXPECT_EQ(windows.Done("close"), "close " + one + " close " + one + " close " + two);
    EXPECT_EQ(clock.TickMs() - begun, 2 * Closing::Passes * Closing::PassMs);
    EXPECT_TRUE(Logged("app still not closed at: 500"));
    EXPECT_TRUE(Logged("closing hWnd: " + two));
    EXPECT_TRUE(Logged("attempting to kill PID 3"));
    EXPECT_THAT(programs.killed, ElementsAre(3));
    EXPECT_THAT(Names(), ElementsAre("Kept"));
}

TEST_F(HostingTest, AProgramThatAsksItsUserIsNotKilledForIt) {
    Start("Editor");
    WindowHandle question = 0;
    windows.onClose = [&](WindowHandle) { question = windows.Open(1, "Save?", false); };
    bar.ReShow();
    bar.doquit();
    EXPECT_EQ(Front(), ToolBarName);
    EXPECT_EQ(view.text, "Editor asks before it closes. Close again to end it.");
    EXPECT_TRUE(view.shown);
    EXPECT_THAT(windows.Done("focus"), testing::EndsWith(std::to_string(question)));
    windows.Shut(question); // answered with no
    clock.Advance(ToolBar::LookMs);
    bar.doquit();
    EXPECT_TRUE(programs.killed.empty()) << "it asks anew";
    bar.doquit();
    EXPECT_THAT(programs.killed, ElementsAre(1));
    EXPECT_EQ(Front(), "playlists");
    EXPECT_EQ(browser.ListMode, ListApplications);
    EXPECT_EQ(saved, 3);
}

TEST_F(HostingTest, WhatACrashHasLeftBehindIsEndedWhileTheStartGoesOn) {
    const WindowHandle maps = Start("Maps");
    EXPECT_TRUE(programs.started[0].ours);
    programs.left = {1};
    Hosting next({base, programs, windows});
    next.EndLeftBehind();
    EXPECT_TRUE(Logged("A program of the last start still runs and is ended: PID 1"));
    EXPECT_EQ(windows.Done("close"), "close " + std::to_string(maps));
    EXPECT_TRUE(programs.Running(1)) << "it may save";
    clock.Advance(Closing::LastMs);
    EXPECT_FALSE(programs.Running(1));
    programs.running = {1}; // it does not listen
    clock.Advance(Closing::AskedMs);
    EXPECT_THAT(programs.killed, ElementsAre(1));
    EXPECT_EQ(clock.Running(), 0);
}

TEST_F(HostingTest, TheBarLiesOverTheProgramAndLeadsBackFromIt) {
    bar.ReShow();
    EXPECT_EQ(Front(), "playlists") << "there is no program";
    const WindowHandle maps = Start("Maps");
    player.now = {.title = "One", .artist = "Anna"};
    bar.ReShow();
    EXPECT_EQ(Front(), ToolBarName);
    EXPECT_EQ(list.Count("Hide"), 1);
    EXPECT_EQ(view.text, "Anna - One");
    EXPECT_EQ(windows.Done("focus"), "focus " + std::to_string(maps));
    bar.imgMoveMe_Click();
    EXPECT_TRUE(view.top);
    surfaces.DialogOpened();
    EXPECT_FALSE(view.shown);
    EXPECT_EQ(windows.Done("notop"), "notop " + std::to_string(maps));
    EXPECT_TRUE(windows.held.empty()) << "the dialog has the keys";
    surfaces.DialogClosed();
    EXPECT_TRUE(view.shown && !windows.held.empty());
    bar.VolUp();
    EXPECT_THAT(view.text, testing::StartsWith("Volume : "));
    player.now.title = "FM 87.7 MHz";
    player.now.artist.clear();
    clock.Advance(ToolBar::SayMs + ToolBar::LookMs);
    EXPECT_EQ(view.text, "FM 87.7 MHz");
    EXPECT_GT(looked, 0) << "the night comes here, too";
    bar.MoveAhead();
    EXPECT_EQ(player.Count("MoveAhead"), 1);
    bar.imgSwap_Click();
    EXPECT_EQ(windows.Done("free"), "free " + std::to_string(maps)) << "the list needs the keys";
    EXPECT_EQ(Front(), "playlists");
    EXPECT_FALSE(view.shown || !windows.held.empty());
    EXPECT_TRUE(hosting.Loaded("Maps"));
    bar.ReShow();
    programs.running.clear();
    windows.Shut(maps);
    clock.Advance(10);
    EXPECT_EQ(Front(), "playlists") << "it has ended by itself";
    EXPECT_EQ(clock.Running(), 0);
}

TEST_F(HostingTest, OnlyKeysThatTypeNothingAreHeldBackFromAProgram) {
    keys[Action::vup] = "175";
    keys[Action::Vdown] = "68";
    keys[Action::quit] = "81";
    keys[Action::SWMP] = "113";
    Start("Maps");
    bar.ReShow();
    EXPECT_THAT(windows.held, testing::UnorderedElementsAre(27, 175, 113));
    windows.onKeptTouch(7, 1, 2);
    EXPECT_EQ(view.kept, 7);
    windows.onKey(175);
    windows.onKeyUp(175);
    windows.onKey(27);
    EXPECT_THAT(pressed, ElementsAre("175")) << "it may become a long one";
    windows.onKeyUp(27);
    EXPECT_THAT(pressed, ElementsAre("175", "27"));
    windows.onKey(27);
    clock.Advance(ToolBar::HoldMs);
    EXPECT_EQ(view.entered, 1);
    windows.onKeyUp(27);
    EXPECT_EQ(pressed.size(), 2u);
    EXPECT_TRUE(bar.Form_KeyDown("27"));
    EXPECT_EQ(Front(), "playlists");
}

TEST_F(HostingTest, TheListOfProgramsBearsWhatOthersHaveMadeOfIt) {
    const AppsList apps(app.File(AppsListName), log);
    EXPECT_FALSE(apps.Exists());
    EXPECT_TRUE(apps.Read().empty());
    const ListedApp maps{"/usr/bin/a b -x", "Maps", true, true};
    EXPECT_TRUE(apps.Add(maps));
    EXPECT_EQ(app.Read(AppsListName), "/usr/bin/a b -x|Maps|0|True|True\r\n");
    const std::string strange =
        "a\1b|x|0|True|True\r\n" + std::string(10'000, 'y') + "\r\n|only|0\r\n";
    app.Write(AppsListName, strange + "/bin/c\n/bin/d|D|0|TRUE|false|more\r\n" + maps.Line());
    const auto read = apps.Read();
    ASSERT_EQ(read.size(), 3u);
    EXPECT_EQ(read[0].Line(), "/bin/c|/bin/c|0|False|False");
    EXPECT_EQ(read[1].Line(), "/bin/d|D|0|True|False");
    EXPECT_TRUE(Logged("apps.lst: 3 lines are no applications and are left out"));
    EXPECT_FALSE(apps.Remove(0, maps)) << "another by now";
    EXPECT_TRUE(apps.Remove(2, maps));
    EXPECT_EQ(app.Read(AppsListName), strange + "/bin/c\r\n/bin/d|D|0|TRUE|false|more\r\n");
    const std::string huge(AppsList::LongestFile + 10, '\n');
    app.Write(AppsListName, huge);
    EXPECT_TRUE(apps.Read().empty());
    EXPECT_FALSE(apps.Add(maps));
    EXPECT_EQ(app.Read(AppsListName), huge);
}

TEST_F(HostingTest, ACommandLineIsCutBackToAFileThatIsThere) {
    const std::string spaced = app.Path() + "/my maps -x";
    app.Write("my maps", "");
    app.Write("my", "");
    const struct {
        std::string line, program, arguments;
    } cases[] = {{spaced + " -y \"a b\"", app.File("my maps"), "-x|-y|a b"},
                 {app.File("my") + " other", app.File("my"), "other"},
                 {" /no/such -z ", "/no/such", "-z"},
                 {"", "", ""}};
    for (const auto& c : cases) {
        const CommandLine parsed = CommandLine::Parse(c.line);
        EXPECT_EQ(parsed.program, c.program);
        EXPECT_EQ(Join(parsed.arguments, "|"), c.arguments);
        EXPECT_EQ(CommandLine::Parse(parsed.Text()).arguments, parsed.arguments);
    }
}

} // namespace
} // namespace vk::test
