// Other programs' maps on the GPS screen, on a desktop of fakes.
#include "navigation/external_map.h"
#include "tests/sim/fake_windows.h"
#include "tests/sim/recording_programs.h"
#include "tests/support/core_fixture.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

struct ExternalMapTest : testing::Test, CoreFixture {
    RecordingPrograms programs;
    FakeForeignWindows windows;
    Surfaces surfaces;
    ExternalMap map{{base, programs, windows, {&windows, surfaces, [] { return 1; }}}};

    /// The program of that file is set; what it does is done `atMs` after its
    /// start.
    void Program(const std::string& file, std::vector<std::pair<int, std::function<void()>>> acts) {
        app.Write(file, "");
        settings.values.EXTGPSexeName = app.File(file);
        acts_ = std::move(acts);
        clock.onEvents = [this, begun = clock.TickMs()] {
            while (!acts_.empty() && clock.TickMs() - begun >= acts_.front().first) {
                const auto act = acts_.front().second;
                acts_.erase(acts_.begin());
                act();
            }
        };
    }
    WindowHandle Held() const { return windows.adopted.empty() ? 0 : windows.adopted.back(); }

    std::vector<std::pair<int, std::function<void()>>> acts_;
};

TEST_F(ExternalMapTest, AProgramsWindowIsTakenHandedBackAndTakenAgain) {
    settings.values.EXTGPSexeName = app.File("none");
    EXPECT_FALSE(map.Offered());
    Program("streets.exe", {{100, [&] { windows.Open(1); }}});
    EXPECT_TRUE(map.Offered());
    settings.values.ExtGPSexeParams = "-a \"b c\"";
    settings.values.hideGPSTitleBar = true;
    map.Enter();
    EXPECT_THAT(programs.started.back().arguments, testing::ElementsAre("-a", "b c"));
    const WindowHandle first = Held();
    ASSERT_NE(first, 0);
    EXPECT_THAT(windows.told, testing::Contains("noframe " + std::to_string(first)));
    EXPECT_EQ(windows.Done("control-A"), "control-A " + std::to_string(first));
    EXPECT_EQ(map.Complaint(), "");
    map.Leave();
    EXPECT_EQ(Held(), 0);
    map.Enter();
    EXPECT_EQ(Held(), first);
    EXPECT_EQ(programs.started.size(), 1u) << "it runs already";
    windows.Shut(first); // and another one comes in its place
    const WindowHandle second = windows.Open(1);
    EXPECT_TRUE(map.EverySecond());
    EXPECT_EQ(Held(), second);
    windows.Shut(second);
    programs.running.clear();
    EXPECT_FALSE(map.EverySecond()) << "it has ended";
    map.Leave();
    Program("streets.exe", {{100, [&] { windows.Open(2); }}});
    map.Enter();
    EXPECT_EQ(programs.started.size(), 2u);
    pump.Close();
    map.End();
    EXPECT_TRUE(programs.running.empty());
    EXPECT_TRUE(Logged("attempting to kill gps app PID 2"));
}

TEST_F(ExternalMapTest, TheDialogsOfAKnownProgramAreAnswered) {
    WindowHandle dialog = 0, button = 0;
    int clicks = 0;
    windows.onClick = [&](WindowHandle clicked) {
        EXPECT_EQ(clicked, button);
        if (++clicks < 3) return; // it is not listening yet
        windows.buttons.clear();
        windows.Shut(button);
        windows.Shut(dialog);
    };
    Program("iguidance.EXE", {{50,
                               [&] {
                                   dialog = windows.Open(1, "Warning", false, "#32770");
                                   button = windows.Open(1, "OK", false, "Button");
                                   windows.buttons = {{dialog, button, "OK"}};
                               }},
                              {9000, [&] { windows.Open(1, "a map", true, "IntellinavWCls"); }}});
    map.Enter();
    EXPECT_EQ(clicks, 3);
    ASSERT_NE(Held(), 0);
    EXPECT_EQ(windows.Find(Held())->windowClass, "IntellinavWCls");
}

TEST_F(ExternalMapTest, AWaitWithoutLimitEndsWithTheProgramOrTheUser) {
    Program("Destinator3.exe", {{50, [&] { windows.Open(1, "splash"); }},
                                {200'000, [&] { windows.Open(1, "Dest3Client"); }}});
    map.Enter();
    ASSERT_NE(Held(), 0);
    EXPECT_GE(clock.TickMs(), 200'000);
    map.End();
    windows.list.clear();
    Program("Destinator3.exe",
            {{50, [&] { windows.Open(2, "splash"); }}, {99'000, [&] { pump.EndAll(); }}});
    map.Enter();
    EXPECT_EQ(Held(), 0);
    EXPECT_EQ(map.Complaint(), "Destinator3.exe was stopped.");
    EXPECT_FALSE(programs.Running(2));
}

} // namespace
} // namespace vk::test
