#include "settings/screen/settings_screen.h"
#include "tests/startup/start_fixture.h"
#include "tests/support/page_table.h"
#include "tests/support/widgets.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct SettingsScreenTest : testing::Test, test::StartFixture {
    SettingsScreenTest() {
        SetUpApp();
        start->Form_Load();
        host.resize(800, 480);
        screen = std::make_unique<vk::settings>(
            ControlContext{state, settings.values, skin, pictures, clock, pump, commands},
            SettingsShell::Needs{
                state, settings, report, dialogs, clock, locale, screens, window, loading, skin,
                keys, remoteKeys, extensions, [this] { start->FinishExecution(); },
                [this] { start->ReloadScreens(); }, [] {}, updates, [this] { ++exits; }},
            &host);
        screens.Add("settings", *screen);
        host.show();
        screen->ReShow();
    }
    std::unique_ptr<astart> start = Make();
    PictureCache pictures{skin};
    QWidget host;
    std::unique_ptr<vk::settings> screen;
    int exits = 0;
};

TEST_F(SettingsScreenTest, TheFoldersAreChosenByKeysAloneAndByTouchAlone) {
    const std::string media = app.MakeFolder("other"), more = app.MakeFolder("more");
    dialogs.folders = {media, media};
    EXPECT_TRUE(screen->Form_KeyDown("13"));
    EXPECT_EQ(settings.values.MediaDir, media);
    const std::string lists = app.MakeFolder("other/lists");
    dialogs.folders = {lists};
    EXPECT_TRUE(screen->Form_KeyDown("40"));
    EXPECT_TRUE(screen->Form_KeyDown("13"));
    EXPECT_EQ(settings.values.PlaylistDir, lists);
    EXPECT_TRUE(screen->Form_KeyDown("27"));
    EXPECT_EQ(screens.CurrentForm, "velkorandum");
    screen->ReShow();
    dialogs.folders = {more, more};
    test::Tap(host, {400, 160});
    EXPECT_EQ(settings.values.MediaDir, more);
    test::Tap(host, {700, 370});
    EXPECT_EQ(exits, 1);
    test::Tap(host, {500, 370});
    EXPECT_EQ(screens.CurrentForm, "velkorandum");
}

TEST_F(SettingsScreenTest, EveryActionReachesItsOperationAndNoOther) {
    for (int row = 0; row < 4; ++row)
        screen->MoveDown(); // to a switch
    test::ExpectPageTable(*screen, screens, keys, [this] { screen->runok(); });
}

TEST_F(SettingsScreenTest, EverythingLiesOnTheScreenAtEverySize) {
    for (const QSize size : test::PanelSizes) {
        state.ScreenWidth = size.width();
        state.ScreenHeight = size.height();
        screen->DoLayout();
        test::ExpectChildrenInside(*screen);
    }
}

} // namespace
} // namespace vk
