// From a key or code to an operation: maps, tables, and what is dropped.
#include "app/touch_filter.h"
#include "input/input_router.h"
#include "input/key_map.h"
#include "input/remote_map.h"
#include "tests/support/core_fixture.h"
#include "tests/support/mouse.h"
#include "tests/support/recording_screen.h"

#include <gmock/gmock.h>

namespace vk::test {
namespace {

using Calls = std::vector<std::string>;

struct InputRouterTest : testing::Test, CoreFixture {
    InputRouterTest() {
        screens.Add("playlists", browser);
        screens.Add("velkorandum", menu);
        screens.CurrentForm = "playlists";
        clock.Advance(1000);
        keys[Action::quit] = "81";
        remoteKeys[Action::power] = "off";
        remoteKeys[Action::ok] = "enter";
        remoteKeys[Action::quit] = "out";
    }
    Calls TakeCalls() { return std::exchange(browser.calls, {}); }
    KeyMap keys;
    RemoteMap remoteKeys;
    RecordingScreen browser, menu;
    bool dialogOpen = false;
    int powered = 0, dialogs = 0;
    NewScreen newScreen{screens, clock};
    InputRouter router{{screens, newScreen, clock, keys, remoteKeys,
                        [this](const InputCode&, bool) { return dialogOpen; },
                        [this] { return dialogs; }, [this] { ++powered; }}};
};

TEST_F(InputRouterTest, EveryActionIsReadFromBothFilesAndWritten) {
    app.Write("kb.ini", "[Keyboard]\nvdown=68\nkbPageUp = 33\nstartvis=\n");
    const KeyMap map = ReadKeyMap(ini, settings.File("kb.ini"));
    EXPECT_EQ(map[Action::Vdown], "68");
    EXPECT_EQ(map[Action::pageup], "33");
    EXPECT_FALSE(InputCode("", map).Mapped(Action::startvis));
    for (const ActionNames& names : Actions) {
        EXPECT_TRUE(WriteKey(ini, settings.File("kb.ini"), names.action, names.key));
        EXPECT_TRUE(WriteRemoteKey(ini, settings.File("keys.ini"), names.action, names.remote));
    }
    for (const ActionNames& names : Actions) {
        EXPECT_EQ(&NamesOf(names.action), &names);
        EXPECT_EQ(ReadKeyMap(ini, settings.File("kb.ini"))[names.action], names.key);
        EXPECT_EQ(ReadRemoteMap(ini, settings.File("keys.ini"))[names.action], names.remote);
    }
}

TEST_F(InputRouterTest, ATableIsComparedInOrderAndFixedKeysBeforeWhatIsNoMovement) {
    constexpr ActionRow<RecordingScreen> rows[] = {{Action::vup, &RecordingScreen::VolUp},
                                                   {Action::quit, &RecordingScreen::doquit},
                                                   {Action::ok, &RecordingScreen::runok},
                                                   {Action::up, &RecordingScreen::MoveUp}};
    keys[Action::up] = "13"; // the fixed keys may change their places
    keys[Action::ok] = keys[Action::quit];
    keys[Action::vup] = "38"; // but nothing else may take one
    const auto run = [&](const std::string& code, const auto& map) {
        const bool used = RunAction(browser, rows, InputCode(code, map));
        EXPECT_EQ(used, !browser.calls.empty());
        return TakeCalls();
    };
    EXPECT_EQ(run("81", keys), Calls{"doquit"});
    EXPECT_EQ(run("13", keys), Calls{"MoveUp"});
    EXPECT_EQ(run("38", keys), Calls{"MoveUp"});
    EXPECT_EQ(run("40", keys), Calls{}) << "not in this table";
    EXPECT_EQ(run("", keys), Calls{});
    EXPECT_EQ(run("enter", remoteKeys), Calls{"runok"});
    EXPECT_EQ(run("27", remoteKeys), Calls{}) << "a remote has no fixed codes";
}

TEST_F(InputRouterTest, WhileACommandRunsCodesAreDroppedAndOnlyALateQuitIsNot) {
    browser.onCall = [this](const std::string&) {
        browser.onCall = {};
        for (const char* code : {"40", "81"})
            EXPECT_TRUE(router.Key(code));
        router.IRCommand("out");
        clock.Advance(InputRouter::InterruptMs);
        router.IRCommand("out", true);
        router.Key("40");
        router.IRCommand("enter");
        router.Key("27");
        router.IRCommand("out");
    };
    router.IRCommand("enter");
    EXPECT_EQ(TakeCalls(), (Calls{"DoAction", "key 27", "DoAction"}));
    router.Key("40");
    EXPECT_EQ(TakeCalls(), Calls{"key 40"});
}

TEST_F(InputRouterTest, WhatWasPressedForTheScreenBeforeDoesNotReachTheNewOne) {
    browser.onCall = [this](const std::string&) {
        screens.CurrentForm = "velkorandum";
        EXPECT_TRUE(router.Key("13"));
    };
    router.Key("27");
    EXPECT_TRUE(router.Key("13"));
    router.IRCommand("enter");
    EXPECT_EQ(menu.calls, Calls{});
    clock.Advance(NewScreen::DeafMs + 1);
    router.Key("13");
    router.IRCommand("enter");
    EXPECT_EQ(menu.calls, (Calls{"key 13", "DoAction"}));
    screens.CurrentForm = "playlists"; // by itself, or by touch
    EXPECT_TRUE(router.Key("13"));
    EXPECT_EQ(TakeCalls(), Calls{"key 27"}) << "the first alone";
}

TEST_F(InputRouterTest, AHeldKeyRepeatsWhatMovesAndOnlyOnItsOwnScreen) {
    keys[Action::pageup] = "33";
    for (const char* code : {"38", "13", "33", "81", "65", "%38"}) {
        router.Key(code);
        EXPECT_TRUE(router.Key(code, true));
    }
    EXPECT_EQ(TakeCalls(), (Calls{"key 38", "key 38", "key 13", "key 33", "key 33", "key 81",
                                  "key 65", "key %38"}));
    router.Key("40");
    screens.Add("settingsKeyboard", menu);
    for (const char* form : {"velkorandum", "settingsKeyboard"}) {
        screens.CurrentForm = form;
        clock.Advance(1000);
        router.Key("40", true);
    }
    router.Key("40");
    router.Key("40", true); // it may be a key that is learnt
    EXPECT_EQ(menu.calls, Calls{"key 40"});
    screens.CurrentForm = "playlists";
    clock.Advance(1000);
    router.Key("38");
    ++dialogs; // in which the key was pressed anew
    router.Key("38", true);
    EXPECT_EQ(TakeCalls(), (Calls{"key 40", "key 38"}));
}

TEST_F(InputRouterTest, AHeldButtonOfTheRemoteStopsAtTheNextScreenOrDialog) {
    router.IRCommand("enter");
    router.IRCommand("enter", true);
    EXPECT_EQ(TakeCalls(), (Calls{"DoAction", "DoAction"}));
    screens.Add("playmp3", browser);
    const std::function<void()> changes[] = {[this] { ++dialogs; },
                                             [this] { screens.CurrentForm = "playmp3"; }};
    for (const auto& change : changes) {
        change();
        clock.Advance(1000);
        router.IRCommand("enter", true);
        EXPECT_EQ(TakeCalls(), Calls{});
        router.IRCommand("enter");
        EXPECT_EQ(TakeCalls(), Calls{"DoAction"}) << "pressed anew";
    }
    router.IRCommand("out", true);
    EXPECT_EQ(TakeCalls(), Calls{}) << "its press was never told";
}

TEST_F(InputRouterTest, TheSecondTapOfADoubleTapDoesNotReachTheNextScreen) {
    struct Tile : QWidget {
        int presses = 0, releases = 0;
        void mousePressEvent(QMouseEvent*) override { ++presses; }
        void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
    } tile;
    TouchFilter filter(newScreen);
    QCoreApplication::instance()->installEventFilter(&filter);
    Click(tile, {1, 1});
    Mouse(tile, QEvent::MouseButtonDblClick, {1, 1});
    Release(tile, {1, 1});
    EXPECT_EQ(tile.presses + tile.releases, 4) << "two quick taps on one button";
    screens.CurrentForm = "velkorandum";
    Click(tile, {1, 1});
    clock.Advance(NewScreen::DeafMs);
    Mouse(tile, QEvent::MouseButtonDblClick, {1, 1});
    clock.Advance(1);
    Release(tile, {1, 1});
    EXPECT_EQ(tile.presses + tile.releases, 4);
    Click(tile, {1, 1});
    EXPECT_EQ(tile.presses + tile.releases, 6);
}

TEST_F(InputRouterTest, DialogsComeFirstAndPowerIsForTheSettingsToLearn) {
    router.IRCommand("off");
    EXPECT_EQ(powered, 1);
    browser.onCall = [this](const std::string&) { dialogOpen = true; };
    router.IRCommand("other");
    EXPECT_EQ(browser.calls, Calls{"DoAction"});
    router.IRCommand("off");
    EXPECT_EQ(powered, 1) << "the dialog has it";
    dialogOpen = false;
    screens.Add("settingsRemote", menu);
    screens.CurrentForm = "settingsRemote";
    clock.Advance(1000);
    router.IRCommand("off");
    EXPECT_EQ(powered, 1);
    EXPECT_EQ(menu.calls, Calls{"DoAction"});
    screens.CurrentForm = "none";
    EXPECT_FALSE(router.Key("13"));
}

} // namespace
} // namespace vk::test
