// What the learning pages write and say.
#include "settings/keyboard_learning.h"
#include "settings/remote_learning.h"
#include "tests/support/core_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {
namespace {

struct CountingBeeper : Beeper {
    void Beep() override { ++beeps; }
    int beeps = 0;
};

struct LearningTest : testing::Test, CoreFixture {
    LearningTest() {
        app.Write("kb.ini", "[keyboard]\nup=38\nquit=27\nvdown = 68\n");
        keyboard.Enter();
        remote.Enter();
    }
    KeyMap keys;
    RemoteMap codes;
    CountingBeeper beeper;
    int opened = 0;
    bool collecting = false, found = true;
    float interval = 0;
    KeyboardLearning keyboard{{settings, report, clock, keys}};
    SerialList ports;
    RemoteLearning remote{{base, beeper, codes, [this] { return ++opened > 0 && found; },
                           [this] { return found; }, [this](bool on) { collecting = on; },
                           [this](float seconds) { interval = seconds; },
                           [this] { return ports; }}};
};

TEST_F(LearningTest, AKeyIsProgrammedRefusedOrCanceled) {
    const struct {
        const char *code, *message, *status, *written;
    } cases[] = {
        {"27", "Key Programming Canceled", "Pressed key Esc", ""},
        {"68", "This key is already programmed to another function", "Pressed key D", ""},
        {"13", "This key is already programmed to another function", "Pressed key Enter", ""},
        {"70", "play has been programmed to keypress F", "Pressed key F", "70"},
        {"70", "play has been programmed to keypress F", "Pressed key F", "70"},
        {"116", "play has been programmed to keypress F5", "Pressed key F5", "116"}};
    for (const auto& c : cases) {
        keyboard.Arm(Action::play);
        EXPECT_EQ(keyboard.Message(), "Press any key to assign this funtion to it");
        keyboard.KeyDown(c.code);
        EXPECT_EQ(keyboard.Message(), c.message);
        EXPECT_EQ(keyboard.Status(), c.status);
        EXPECT_EQ(ini.ReadText(settings.File("kb.ini"), "keyboard", "play"), c.written);
        EXPECT_FALSE(keyboard.Armed());
    }
    keyboard.Arm(Action::up);
    keyboard.KeyDown("");
    EXPECT_EQ(keyboard.Message(), "This key cannot be used, press another one");
    keyboard.KeyDown("38");
    EXPECT_EQ(keyboard.Message(), "up has been programmed to keypress Up Arrow") << "its own";
    keyboard.Arm(Action::play);
    keyboard.Arm(Action::play);
    EXPECT_EQ(keyboard.Message(), "Key Programming Canceled");
    keyboard.KeyDown("80");
    EXPECT_EQ(keyboard.Keys()[Action::play], "116") << "no function waits";
    EXPECT_EQ(keys[Action::play], "") << "the map in use is read when the page is left";
    keyboard.Leave();
    EXPECT_EQ(keys[Action::play], "116");
    EXPECT_EQ(keys[Action::Vdown], "68");
    for (const auto& [code, name] : {std::pair("57", "9"),
                                     {"111", "/ [Num Pad]"},
                                     {"220", "\\"},
                                     {"144", "Num Lock"},
                                     {"", "No Key"},
                                     {"7x", "No Key"},
                                     {"175", "Vol Up"},
                                     {"135", "F24"},
                                     {"100", "4 [Num Pad]"},
                                     {"431", "Key 431"}})
        EXPECT_EQ(KeyName(code), name) << code;
}

TEST_F(LearningTest, ACodeIsListedAndGivenToTheWaitingButton) {
    EXPECT_TRUE(collecting);
    EXPECT_TRUE(remote.Received("111", false)) << "free to work the page";
    EXPECT_FALSE(remote.Received("111", true));
    remote.Arm(Action::pageup);
    EXPECT_FALSE(remote.Received("111", true));
    EXPECT_EQ(remote.Codes()[Action::pageup], "") << "it was held when the page was told to learn";
    EXPECT_FALSE(remote.Received("111", false));
    EXPECT_EQ(remote.List().back(), "irpageup has been programmed to keycode 111");
    EXPECT_FALSE(remote.Received("111", true)) << "what was learnt stays to be read";
    EXPECT_EQ(remote.List().back(), "irpageup has been programmed to keycode 111");
    EXPECT_EQ(beeper.beeps, 2);
    EXPECT_EQ(ini.ReadText(settings.File("keys.ini"), "remote_keys", "irpageup"), "111");
    EXPECT_TRUE(remote.Received("222", false)) << "no button waits any more";
    remote.Leave();
    EXPECT_FALSE(collecting);
    EXPECT_EQ(codes[Action::pageup], "111");
    remote.ClearList();
    EXPECT_TRUE(remote.List().empty());
    dialogs.answers = {false, true};
    remote.ResetCodes();
    EXPECT_EQ(remote.Codes()[Action::pageup], "111");
    remote.ResetCodes();
    EXPECT_EQ(ini.ReadText(settings.File("keys.ini"), "remote_keys", "irpageup"), "");
}

TEST_F(LearningTest, WhatIsWaitedForTooLongOrTwiceIsGivenUp) {
    int refreshed = 0;
    keyboard.onTimeOut = remote.onTimeOut = [&] { ++refreshed; };
    keyboard.Arm(Action::play);
    remote.Arm(Action::ok);
    remote.Arm(Action::ok);
    EXPECT_FALSE(remote.ArmedAction());
    remote.Arm(Action::ok);
    clock.Advance(RemoteLearning::WaitMs);
    EXPECT_EQ(keyboard.Message(), "Key Programming Canceled");
    EXPECT_EQ(remote.List(), std::vector<std::string>(2, "Key Programming Canceled"));
    EXPECT_FALSE(keyboard.Armed() || remote.ArmedAction());
    remote.FixRepeat();
    clock.Advance(RemoteLearning::MeasureMs);
    EXPECT_EQ(remote.List().back(), "No held button was heard");
    EXPECT_EQ(refreshed, 3);
    for (const auto& [on, there, obstacle] :
         {std::tuple(true, true, ""),
          {true, false, "The receiver is not there yet: no code can be learnt"},
          {false, true, "The remote is disabled: no code can be learnt"}}) {
        settings.values.remoteStatus = on;
        found = there;
        EXPECT_EQ(remote.Obstacle(), obstacle);
    }
}

TEST_F(LearningTest, AReceiverIsOpenedWhenItIsChosenAndNoneOnTheWayToIt) {
    const auto stored = [this] {
        return settings.Read("remote", "type") + " " + settings.Read("remote", "comport");
    };
    ports[0] = {"Serial port ttyS0", "/dev/ttyS0"};
    ports[1] = {"FTDI A9014ID2", "/dev/serial/by-id/ftdi"};
    settings.Write("remote", "type", "lirc");
    settings.Write("remote", "comport", "/dev/serial/by-id/x");
    remote.Enter();
    EXPECT_EQ(remote.Port(), "/dev/serial/by-id/x");
    EXPECT_TRUE(remote.Chosen());
    remote.Choose();
    remote.StepType(2);
    remote.StepPort(-1);
    EXPECT_EQ(remote.Type() + " " + remote.Port(), "CREATIVE FTDI A9014ID2");
    EXPECT_FALSE(remote.Chosen());
    EXPECT_EQ(stored() + std::to_string(opened), "lirc /dev/serial/by-id/x0");
    remote.Choose();
    EXPECT_EQ(stored() + std::to_string(opened), "CREATIVE /dev/serial/by-id/ftdi1");
    remote.StepPort(-1);
    found = false;
    remote.Enable(true);
    EXPECT_EQ(stored() + std::to_string(opened), "CREATIVE 12");
    EXPECT_EQ(remote.List().back(), "The receiver was not found");
    EXPECT_TRUE(settings.values.remoteStatus);
    remote.StepPort(1);
    remote.Leave();
    EXPECT_EQ(stored() + std::to_string(opened), "CREATIVE /dev/serial/by-id/ftdi3") << "as shown";
    remote.UseRepeatDelay(true);
    EXPECT_EQ(settings.Read("main", "UseDelay"), "true");
    remote.FixRepeat();
    for (int burst = 0; burst <= RemoteLearning::MeasuredGaps; ++burst) {
        EXPECT_TRUE(remote.Measuring());
        remote.Received("9", burst > 0);
        clock.Advance(110);
    }
    EXPECT_FALSE(remote.Measuring());
    EXPECT_FLOAT_EQ(interval, 0.11F);
    EXPECT_EQ(settings.Read("remote", "speed"), "99");
}

} // namespace
} // namespace vk::test
