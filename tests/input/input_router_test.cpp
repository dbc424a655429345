// From a key or code to an operation: maps, tables, and what is dropped.
#include "input/input_router.h"
#include "input/key_map.h"
#include "input/remote_map.h"
#include "tests/support/core_fixture.h"
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
        keys[Action::quit] = "81";
        remoteKeys[Action::power] = "off";
        remoteKeys[Action::ok] = "enter";
    }
    KeyMap keys;
    RemoteMap remoteKeys;
    RecordingScreen browser, menu;
    bool dialogOpen = false;
    int powered = 0;
    InputRouter router{{screens, clock, keys, remoteKeys,
                        [this](const InputCode&) { return dialogOpen; }, [this] { ++powered; }}};
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

TEST_F(InputRouterTest, ATableIsComparedInOrderAndFixedKeysLast) {
    constexpr ActionRow<RecordingScreen> rows[] = {{Action::quit, &RecordingScreen::doquit},
                                                   {Action::ok, &RecordingScreen::runok},
                                                   {Action::up, &RecordingScreen::MoveUp}};
    keys[Action::up] = "13"; // a map may give a fixed key another meaning
    keys[Action::ok] = keys[Action::quit];
    const auto run = [&](const std::string& code, const auto& map) {
        browser.calls.clear();
        const bool used = RunAction(browser, rows, InputCode(code, map));
        EXPECT_EQ(used, !browser.calls.empty());
        return browser.calls;
    };
    EXPECT_EQ(run("81", keys), Calls{"doquit"});
    EXPECT_EQ(run("13", keys), Calls{"MoveUp"});
    EXPECT_EQ(run("38", keys), Calls{"MoveUp"});
    EXPECT_EQ(run("40", keys), Calls{}) << "not in this table";
    EXPECT_EQ(run("", keys), Calls{});
    EXPECT_EQ(run("enter", remoteKeys), Calls{"runok"});
    EXPECT_EQ(run("27", remoteKeys), Calls{}) << "a remote has no fixed codes";
}

TEST_F(InputRouterTest, WhileACommandRunsCodesAreDroppedAndOnlyALateQuitKeyIsNot) {
    browser.onCall = [this](const std::string&) {
        browser.onCall = {};
        for (const char* code : {"40", "81"})
            EXPECT_TRUE(router.Key(code));
        router.IRCommand("enter");
        clock.Advance(InputRouter::InterruptMs);
        router.Key("40");
        router.IRCommand("enter");
        router.Key("27");
        router.Key("81");
    };
    router.IRCommand("enter");
    EXPECT_EQ(browser.calls, (Calls{"DoAction", "key 27", "key 81"}));
    router.Key("40");
    EXPECT_EQ(browser.calls.back(), "key 40");
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
    clock.Advance(InputRouter::NewScreenMs);
    router.Key("13");
    router.IRCommand("enter");
    EXPECT_EQ(menu.calls, (Calls{"key 13", "DoAction"}));
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
    router.IRCommand("off");
    EXPECT_EQ(powered, 1);
    EXPECT_EQ(menu.calls, Calls{"DoAction"});
    screens.CurrentForm = "none";
    EXPECT_FALSE(router.Key("13"));
}

} // namespace
} // namespace vk::test
