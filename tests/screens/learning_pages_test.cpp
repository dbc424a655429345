#include "settings/screen/keyboard_page.h"
#include "settings/screen/remote_page.h"
#include "tests/startup/start_fixture.h"
#include "tests/support/page_table.h"
#include "tests/support/widgets.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct SilentBeeper : Beeper {
    void Beep() override {}
};

struct LearningPagesTest : testing::Test, test::StartFixture {
    LearningPagesTest() {
        MakeScreen("settings");
        app.Write("kb.ini", "[keyboard]\nmute=77\n");
        host.resize(640, 480);
        state.ScreenWidth = 640;
        state.ScreenHeight = 480;
        host.show();
        screens.Add("settingsKeyboard", keyboard);
        screens.Add("settingsRemote", remote);
        for (const ActionNames& names : Actions)
            codes[names.action] = names.remote;
    }
    void TapOn(const char* name) {
        const auto* button = host.findChild<QWidget*>(name);
        test::Tap(host, button->mapTo(&host, button->rect().center()));
    }
    bool Send(const std::string& code, bool held = false) {
        return remote.DoAction(InputCode(code, codes, held));
    }
    PictureCache pictures{skin};
    QWidget host;
    ControlContext context{state, settings.values, skin, pictures, clock, pump, commands};
    SilentBeeper beeper;
    RemoteMap codes, read;
    settingsKeyboard keyboard{
        {context, screens, keys, "settingsKeyboard"}, {settings, report, clock, keys}, &host};
    settingsRemote remote{{context, screens, keys, "settingsRemote"},
                          {settings, report, dialogs, clock, beeper, read, [] { return true; },
                           [] { return true; }, [](bool) {}, [](float) {}},
                          &host};
};

TEST_F(LearningPagesTest, AKeyIsGivenByKeysAlone) {
    keyboard.ReShow();
    EXPECT_EQ(screens.CurrentForm, "settingsKeyboard");
    for (const char* code : {"39", "40", "38", "13", "%65"})
        EXPECT_TRUE(keyboard.Form_KeyDown(code)) << code;
    EXPECT_EQ(keyboard.learning().Message(), "MP3toRadio has been programmed to keypress A");
    EXPECT_TRUE(keyboard.Form_KeyDown("27"));
    EXPECT_EQ(keys[Action::MP3toRadio], "65");
    EXPECT_TRUE(Told("settings.ReShow"));
}

TEST_F(LearningPagesTest, ACodeIsLearntByTouchAndByTheRemoteAlone) {
    remote.ReShow();
    TapOn("btnIRvdown");
    EXPECT_TRUE(Send("4711"));
    EXPECT_EQ(remote.learning().Codes()[Action::Vdown], "4711");
    remote.ReShow();
    Send("ok");
    EXPECT_EQ(remote.learning().ArmedAction(), Action::Vdown) << "where the finger was";
    Send("ok", true);
    Send("0815");
    EXPECT_EQ(remote.learning().Codes()[Action::Vdown], "0815");
    for (const char* code : {"down", "down", "down", "down", "down", "ok"})
        Send(code); // from the third column to the button of the receiver
    TapOn("btnEnableIR");
    EXPECT_TRUE(settings.values.remoteStatus);
    Send("quit");
    EXPECT_EQ(read[Action::Vdown], "0815");
    EXPECT_TRUE(Told("settings.ReShow"));
}

TEST_F(LearningPagesTest, EveryActionReachesItsOperationAndNoOther) {
    const auto check = [this](auto& page) {
        page.ReShow();
        page.MoveDown();
        page.MoveAhead();
        test::ExpectPageTable(page, screens, keys, [&] { page.ReShow(); });
    };
    check(keyboard);
    check(remote);
}

TEST_F(LearningPagesTest, EverythingIsLargeAndLiesOnTheScreen) {
    for (const QSize size : test::PanelSizes) {
        state.ScreenWidth = size.width();
        state.ScreenHeight = size.height();
        keyboard.ReShow();
        test::ExpectChildrenInside(keyboard);
        remote.ReShow();
        test::ExpectChildrenInside(remote);
        const QSize button = host.findChild<QWidget*>("btnIRok")->size();
        EXPECT_GE(button.width(), size.width() / 5);
        EXPECT_GE(button.height(), size.height() / 10);
    }
}

} // namespace
} // namespace vk
