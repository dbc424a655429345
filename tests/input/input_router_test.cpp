// From a key or code to an operation: maps, tables, and what is dropped.
#include "app/host/touch_filter.h"
#include "input/input_router.h"
#include "input/key_map.h"
#include "input/remote_map.h"
#include "tests/support/core_test.h"
#include "tests/support/mouse.h"
#include "tests/support/recording_screen.h"

namespace vk::test {

using Calls = std::vector<std::string>;

/// Knows no keys, and no key goes on here.
struct LearningScreen : RecordingScreen {
    bool Form_KeyDown(const std::string&) { return false; }
    bool Repeats(const InputCode&) const { return false; }
};

/// Has buttons that write down, too, what is done with them.
struct ButtonScreen : RecordingScreen, ScreenButtons {
    ScreenButtons& Buttons() { return *this; }
    bool Offered() const override { return offered; }
    bool Enter() override {
        Tell("Enter");
        return marked = any;
    }
    void Leave() override {
        Tell("Leave");
        marked = false;
    }
    bool Marked() const override { return marked; }
    void Move(int dx, int dy) override { Tell("Move " + std::to_string(dx) + std::to_string(dy)); }
    void Press() override { Tell("Press"); }
    void Release() override { Tell("Release"); }
    void Say(const std::string& text) override { Tell(text); }
    bool offered = true, any = true, marked = false;
};

struct InputRouterTest : CoreTest {
    InputRouterTest() {
        screens.Add("playmp3", player);
        screens.Add("playlists", browser);
        screens.Add("velkorandum", menu);
        Show("playlists");
        keys[Action::quit] = "81";
        remoteKeys[Action::power] = "off";
        remoteKeys[Action::ok] = "enter";
        remoteKeys[Action::quit] = "out";
    }
    /// Sends keys, and codes of the remote where they are words; "~" behind one that is held on,
    /// "^" in front of a key that is let go. Gives what the screen got, the browser at first.
    Calls Sent(std::initializer_list<std::string> codes) { return Sent(codes, browser); }
    Calls Sent(std::initializer_list<std::string> codes, RecordingScreen& screen) {
        for (std::string code : codes) {
            const bool held = code.ends_with("~");
            if (held) code.pop_back();
            if (code.starts_with("^"))
                router.KeyUp(code.substr(1));
            else if (std::isalpha(code[0]))
                router.IRCommand(code, held);
            else
                EXPECT_TRUE(router.Key(code, held)) << code;
        }
        return std::exchange(screen.calls, {});
    }
    void Settle() { clock.Advance(1000); }
    void Show(const char* form) {
        screens.CurrentForm = form;
        Settle();
    }
    KeyMap keys;
    RemoteMap remoteKeys;
    RecordingScreen browser, menu;
    ButtonScreen player;
    LearningScreen learning;
    bool dialogOpen = false;
    int powered = 0, dialogs = 0;
    NewScreen newScreen{screens, clock};
    ButtonKeys buttons{screens, settings, clock};
    InputRouter router{{screens, commands, newScreen, buttons, keys, remoteKeys,
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
    std::string goOn;
    for (const ActionNames& names : Actions) {
        EXPECT_EQ(&NamesOf(names.action), &names);
        const KeyMap written = ReadKeyMap(ini, settings.File("kb.ini"));
        EXPECT_EQ(written[names.action], names.key);
        if (GoesOnWhileHeld(InputCode(names.key, written))) goOn.append(names.caption).append(", ");
        EXPECT_EQ(ReadRemoteMap(ini, settings.File("keys.ini"))[names.action], names.remote);
    }
    EXPECT_EQ(goOn, "Volume up, Volume down, Forward, Back, Up, Down, Page up, Page down, "
                    "Fast forward, Rewind, ");
}

TEST_F(InputRouterTest, ATableIsComparedInOrderAndFixedKeysBeforeWhatIsNoMovement) {
    constexpr ActionRow<RecordingScreen> rows[] = {
        {Action::down, &RecordingScreen::MoveDown}, {Action::forward, &RecordingScreen::MoveAhead},
        {Action::vup, &RecordingScreen::VolUp},     {Action::quit, &RecordingScreen::doquit},
        {Action::ok, &RecordingScreen::runok},      {Action::up, &RecordingScreen::MoveUp}};
    keys[Action::up] = "40"; // arrows may change their places
    keys[Action::ok] = "38"; // but nothing else may take one,
    keys[Action::vup] = "39";
    keys[Action::quit] = keys[Action::down] = "13"; // nor Enter
    remoteKeys[Action::vup] = "out";
    const std::tuple<std::string, bool, const char*> cases[] = {
        {"13", false, "runok"},   {"27", false, "doquit"},    {"38", false, "MoveUp"},
        {"40", false, "MoveUp"},  {"39", false, "MoveAhead"}, {"", false, ""},
        {"enter", true, "runok"}, {"out", true, "VolUp"},     {"27", true, ""}};
    for (const auto& [code, remote, call] : cases) {
        const InputCode sent = remote ? InputCode(code, remoteKeys) : InputCode(code, keys);
        EXPECT_EQ(RunAction(browser, rows, sent), *call != 0) << code;
        EXPECT_EQ(std::exchange(browser.calls, {}), *call ? Calls{call} : Calls{}) << code;
    }
}

TEST_F(InputRouterTest, WhileACommandRunsCodesAreDroppedAndOnlyALateQuitIsNot) {
    browser.onCall = [this](const std::string&) {
        browser.onCall = {};
        EXPECT_EQ(Sent({"40", "81", "out"}), Calls{"DoAction"}) << "this command";
        EXPECT_TRUE(pump.Pause("a long list", Commands::InterruptMs)) << "too soon to end it";
        EXPECT_EQ(Sent({"out~", "40", "enter"}), Calls{});
        EXPECT_TRUE(pump.Pause("a long list", 1));
        EXPECT_EQ(Sent({"27", "40", "enter"}), Calls{});
        EXPECT_FALSE(pump.Pause("a long list", 1));
    };
    EXPECT_EQ(Sent({"enter"}), Calls{"key 27"}) << "when the command has come to its end";
    EXPECT_EQ(Sent({"40"}), Calls{"key 40"});
}

TEST_F(InputRouterTest, WhatWasPressedForTheScreenOrDialogBeforeDoesNotReachTheNewOne) {
    browser.onCall = [this](const std::string&) {
        browser.onCall = {};
        screens.CurrentForm = "velkorandum";
        EXPECT_TRUE(router.Key("13"));
    };
    Sent({"27", "13", "enter"});
    EXPECT_EQ(menu.calls, Calls{});
    clock.Advance(NewScreen::DeafMs + 1);
    Sent({"13", "enter"});
    EXPECT_EQ(menu.calls, (Calls{"key 13", "DoAction"}));
    screens.CurrentForm = "playlists"; // by itself, or by touch
    EXPECT_EQ(Sent({"13"}), Calls{});
    Settle();
    newScreen.Changed(); // a dialog has gone
    EXPECT_EQ(Sent({"13", "enter"}), Calls{});
    clock.Advance(NewScreen::DeafMs + 1);
    EXPECT_EQ(Sent({"13"}), Calls{"key 13"});
}

TEST_F(InputRouterTest, AHeldKeyRepeatsWhatMovesAndOnlyOnItsOwnScreen) {
    keys[Action::pageup] = "33";
    EXPECT_EQ(
        Sent({"38", "38~", "13", "13~", "33", "33~", "81", "81~", "65", "65~", "%38", "%38~"}),
        (Calls{"key 38", "key 38", "key 13", "key 33", "key 33", "key 81", "key 65", "key %38"}));
    Sent({"40"});
    Show("velkorandum");
    Sent({"40~"});
    EXPECT_EQ(menu.calls, Calls{});
    screens.Add("settingsKeyboard", learning);
    Show("settingsKeyboard");
    EXPECT_FALSE(router.Key("40"));
    EXPECT_TRUE(router.Key("40", true)) << "it was not asked for";
    Show("playlists");
    Sent({"38"});
    ++dialogs; // in which the key was pressed anew
    EXPECT_EQ(Sent({"38~"}), Calls{});
}

TEST_F(InputRouterTest, AHeldButtonOfTheRemoteRepeatsLikeAKeyUntilTheNextScreenOrDialog) {
    remoteKeys[Action::up] = "up";
    EXPECT_EQ(Sent({"enter", "enter~", "up", "up~"}), Calls(3, "DoAction"));
    screens.Add("frmGPS", browser);
    for (const bool dialog : {true, false}) {
        if (dialog) ++dialogs;
        Show(dialog ? "playlists" : "frmGPS");
        EXPECT_EQ(Sent({"up~"}), Calls{});
        EXPECT_EQ(Sent({"up"}), Calls{"DoAction"}) << "pressed anew";
    }
    EXPECT_EQ(Sent({"out~"}), Calls{}) << "its press was never told";
}

TEST_F(InputRouterTest, OnAScreenWithButtonsAShortOkActsWhenItIsLetGoAndALongOneLeadsThere) {
    Show("playmp3");
    EXPECT_EQ(Sent({"38"}, player), (Calls{"Hold Enter or OK to get into the buttons", "key 38"}));
    EXPECT_EQ(settings.Read("main", "ButtonsTold"), "playmp3");
    EXPECT_EQ(Sent({"13", "13~"}, player), Calls{});
    EXPECT_EQ(Sent({"^13", "^13"}, player), Calls{"key 13"});
    EXPECT_EQ(Sent({"13", "40"}, player), (Calls{"key 13", "key 40"})) << "in their order";
    const auto hold = [this](bool remote) { // the remote's button is heard all the time
        Sent({remote ? "enter" : "13"}, player);
        for (int ms = 0; ms <= ButtonKeys::HoldMs; ms += 100) {
            clock.Advance(100);
            if (remote) router.IRHeard("enter");
        }
        return Sent({remote ? "other" : "^13"}, player);
    };
    for (const bool remote : {false, true}) {
        EXPECT_EQ(hold(remote).front(), "Enter");
        EXPECT_EQ(Sent({"37", "38", "38~", "39", "40", "13"}, player),
                  (Calls{"Move -10", "Move 0-1", "Move 0-1", "Move 10", "Move 01", "Press"}));
        clock.Advance(2 * ButtonKeys::IdleMs);
        EXPECT_EQ(Sent({"^13"}, player), Calls{"Release"}) << "it may be held for long";
        EXPECT_EQ(Sent({"85", "27", "27"}, player), (Calls{"key 85", "Leave", "key 27"}));
    }
    hold(false);
    EXPECT_EQ(Sent({"enter"}, player), Calls{"Press"});
    clock.Advance(ButtonKeys::SilenceMs);
    EXPECT_EQ(Sent({}, player), Calls{"Release"});
    clock.Advance(ButtonKeys::IdleMs);
    EXPECT_EQ(Sent({}, player), Calls{"Leave"});
    Sent({"enter"}, player);
    clock.Advance(ButtonKeys::SilenceMs);
    EXPECT_EQ(Sent({}, player), Calls{"DoAction"});
    player.any = false;
    EXPECT_EQ(hold(false), (Calls{"Enter", "key 13"})) << "there is none";
    Sent({"13"}, player);
    ++dialogs;
    EXPECT_EQ(hold(false), (Calls{"Enter", "key 13"})) << "the first was meant for what has gone";
    player.offered = false;
    EXPECT_EQ(Sent({"13"}, player), Calls{"key 13"}) << "at once";
}

TEST_F(InputRouterTest, TheSecondTapOfADoubleTapDoesNotReachTheNextScreen) {
    struct Tile : QWidget {
        int events = 0;
        void mousePressEvent(QMouseEvent*) override { ++events; }
        void mouseReleaseEvent(QMouseEvent*) override { ++events; }
    } tile;
    TouchFilter filter(newScreen);
    QCoreApplication::instance()->installEventFilter(&filter);
    Click(tile, {1, 1});
    Mouse(tile, QEvent::MouseButtonDblClick, {1, 1});
    Release(tile, {1, 1});
    EXPECT_EQ(tile.events, 4) << "two quick taps on one button";
    screens.CurrentForm = "velkorandum";
    Click(tile, {1, 1});
    clock.Advance(NewScreen::DeafMs);
    Mouse(tile, QEvent::MouseButtonDblClick, {1, 1});
    clock.Advance(1);
    Release(tile, {1, 1});
    EXPECT_EQ(tile.events, 4);
    Click(tile, {1, 1});
    EXPECT_EQ(tile.events, 6);
}

TEST_F(InputRouterTest, DialogsComeFirstAndThenPower) {
    keys[Action::power] = "80";
    for (const auto& [form, byRemote] : // which may be learning its code
         {std::pair("menu", 1), {"settings", 0}, {"settingsRemote", 0}, {"settingsKeyboard", 1}}) {
        screens.Add(form, learning);
        Show(form);
        powered = 0;
        Sent({"off"});
        EXPECT_EQ(powered, byRemote) << form;
        EXPECT_EQ(std::exchange(learning.calls, {}).empty(), byRemote) << form;
        Sent({"80"});
        EXPECT_EQ(powered, byRemote + 1) << form;
    }
    dialogOpen = true;
    Sent({"off"});
    EXPECT_EQ(powered, 2) << "the dialog has it";
    screens.CurrentForm = "none";
    EXPECT_FALSE(router.Key("13"));
}

} // namespace vk::test
