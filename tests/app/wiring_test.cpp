// The whole system from its start to its way out.
#include "tests/app/wired_system.h"

#include <gtest/gtest.h>

#include <tuple>

namespace vk::test {
namespace {

constexpr int FirstRunSteps = 30;
constexpr const char* ByUser = "Velkorandum terminated cleanly by user";
constexpr const char* ByMachine = "shutdown initiated by administrative request - os shutdown";

struct WiringTest : testing::Test, WiredSystem {
    /// The way out was run once, and nothing of the system goes on.
    void ExpectGone(const std::string& when) {
        Pass(10); // what was under way comes to its end
        EXPECT_EQ(exits, 1) << when;
        EXPECT_EQ(host().screens.Count(), 0u) << when;
        EXPECT_FALSE(host().commands.ListBusy() || host().pump.Waiting()) << when;
        EXPECT_EQ(clock.Running(), 0) << when << ": a timer goes on";
        const std::string log = dir.Read("debug.log");
        Pass(5000);
        EXPECT_EQ(dir.Read("debug.log"), log) << when << ": something still happens";
        app.reset();
        EXPECT_EQ(clock.Timers(), 0) << when;
    }
};

TEST_F(WiringTest, TheStartLeadsToTheMenuAndTheScreensMeetByName) {
    ASSERT_TRUE(Make().Start());
    EXPECT_EQ(Front(), HomeScreen);
    for (const char* name : {HomeScreen, "playlists", "playmp3"})
        EXPECT_NE(host().screens.Find(name), nullptr) << name;
    Pass(1000);
    auto* bar = new QWidget(&host().window);
    host().surfaces.Put("tools", {Layer::Bar, [&] { bar->raise(); }});
    Key(Qt::Key_Return);
    EXPECT_EQ(Front(), "playlists");
    EXPECT_EQ(host().window.children().back(), bar) << "the screen came under it";
    host().surfaces.Remove("tools");
    Pass(1000);
    Remote("BACK");
    EXPECT_EQ(Front(), HomeScreen);
    EXPECT_NE(host().window.children().back(), bar);
    Pass(1000);
    app->Quit(false);
    EXPECT_EQ(exits, 0) << "what asked for it returns first";
    Pass(10);
    EXPECT_EQ(Logged(ByUser), 1u);
    ExpectGone("from the menu");
}

TEST_F(WiringTest, TheMapIsReachedFromTheMenuAndLeftWhenTheMachineSleeps) {
    dir.Write("kb.ini", "[keyboard]\ngps=71\n");
    dir.Write("settings.ini", dir.Read("settings.ini") + "[GPS]\nGPSModule=1\nmap=town.bin\n");
    ASSERT_TRUE(Make().Start());
    EXPECT_EQ(Logged("Destinator Version: 0.0"), 1u);
    EXPECT_EQ(engine.asked, std::vector<std::string>{"start town.bin "});
    Pass(1000);
    Key(Qt::Key_G);
    EXPECT_EQ(Front(), "frmGPS");
    EXPECT_TRUE(engine.portOpen);
    power.onBroadcast(4, 0);
    EXPECT_EQ(Front(), HomeScreen);
    EXPECT_FALSE(engine.portOpen);
    power.onBroadcast(7, 0);
    Pass(1000);
    Key(Qt::Key_G);
    app->Quit(true);
    ExpectGone("from the map");
    EXPECT_EQ(engine.state, EngineState::Stopped);
}

TEST_F(WiringTest, TheScreensAreMadeAnewAfterTheSettingsWhichGoOnlyWithoutADialog) {
    ASSERT_TRUE(Make().Start());
    Pass(1000);
    Key(Qt::Key_P);
    ASSERT_EQ(Front(), "settings");
    Pass(1000);
    const int timers = clock.Timers();
    Key(Qt::Key_Escape);
    EXPECT_EQ(Front(), HomeScreen);
    EXPECT_EQ(clock.Timers(), timers) << "the old screens' have gone";
    EXPECT_NE(host().screens.Find("playlists"), nullptr);
    // A question that the settings left behind, as its event loop runs on under the menu.
    bool asked = false;
    QTimer later;
    QObject::connect(&later, &QTimer::timeout, [&] {
        if (!host().dialogs.Active()) return;
        later.stop();
        clock.Advance(5000);
        asked = host().screens.Find("settings") != nullptr;
        Key(Qt::Key_Return);
    });
    later.start(0);
    host().dialogs.ShowMessage("a question");
    EXPECT_TRUE(asked) << "the settings may be on the stack";
    Pass(5000);
    EXPECT_EQ(host().screens.Find("settings"), nullptr);
    app->Quit(true);
    Pass(10);
    ExpectGone("after a reload");
}

TEST_F(WiringTest, AQuitAtEachStepOfTheStartEndsInGoodOrder) {
    for (const bool osShutdown : {false, true})
        for (const char* setup : {"true", "false"})
            for (int step = 1;; ++step) {
                WriteSettings(setup);
                dir.Write("debug.log", "");
                int looks = 0;
                player.onLook = [&] {
                    if (++looks == step) app->Quit(osShutdown);
                };
                onEvents = player.onLook;
                // The questions of a first run: the user gives up at the first that he may.
                QTimer answer;
                QObject::connect(&answer, &QTimer::timeout, [&] {
                    if (!host().dialogs.Active()) return;
                    player.onLook();
                    Key(Qt::Key_Escape);
                });
                answer.start(0);
                Make();
                const bool runs = app->Start();
                answer.stop();
                const std::string when = "step " + std::to_string(step) + ", setup " + setup;
                if (looks < step) {
                    EXPECT_EQ(runs, *setup == 't') << when;
                    EXPECT_GT(step, 5) << "the start was looked at";
                    player.onLook = onEvents = {};
                    break;
                }
                EXPECT_FALSE(runs) << when;
                player.onLook = onEvents = {};
                EXPECT_EQ(Logged(osShutdown ? ByMachine : ByUser), 1u) << when;
                ExpectGone(when);
                if (*setup == 'f' && step == FirstRunSteps) break; // its questions come again
            }
}

TEST_F(WiringTest, TheWayOutLeavesTheScreenInFrontAndSavesIt) {
    for (const bool osShutdown : {false, true}) {
        ASSERT_TRUE(Make().Start());
        Pass(1000);
        Key(Qt::Key_Return);
        Pass(1000);
        ASSERT_EQ(Front(), "playlists");
        for (const int key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
            Key(key), Pass(400);
        host().settings.Write("main", "BrowseHistory", "");
        if (osShutdown)
            app->Quit(true);
        else
            host().window.close();
        Pass(10);
        EXPECT_EQ(exits, 1);
        EXPECT_NE(Front(), "playlists");
        ExpectGone(osShutdown ? "by the machine" : "by the window");
    }
}

TEST(HostWindowTest, AKeyThatIsHeldOnIsNotLetGoInBetween) {
    HostWindow window;
    std::string told;
    window.onKey = [&](const std::string& code, bool repeat) {
        told += (repeat ? "on" : "down") + code + " ";
        return true;
    };
    window.onKeyUp = [&](const std::string& code) { told += "up" + code + " "; };
    const std::tuple<QEvent::Type, Qt::Key, quint64> events[] = {
        {QEvent::KeyPress, Qt::Key_A, 1},   {QEvent::KeyRelease, Qt::Key_A, 660},
        {QEvent::KeyPress, Qt::Key_A, 660}, {QEvent::KeyRelease, Qt::Key_A, 700},
        {QEvent::KeyPress, Qt::Key_A, 700}, {QEvent::KeyRelease, Qt::Key_A, 720},
        {QEvent::KeyPress, Qt::Key_A, 721}, {QEvent::KeyRelease, Qt::Key_A, 722},
        {QEvent::KeyPress, Qt::Key_B, 722}, {QEvent::KeyRelease, Qt::Key_B, 0}};
    for (const auto& [type, key, at] : events) {
        QKeyEvent event(type, key, Qt::NoModifier);
        event.setTimestamp(at);
        QCoreApplication::sendEvent(&window, &event);
    }
    EXPECT_EQ(told, "down65 on65 on65 up65 down65 up65 down66 up66 ");
}

} // namespace
} // namespace vk::test
