#include "home/screen/velkorandum.h"
#include "tests/home/menu_fixture.h"
#include "tests/paths.h"
#include "tests/support/widgets.h"

namespace vk::test {
namespace {

// The menu on the skins that ship.
struct MenuScreenTest : testing::Test, MenuFixture {
    MenuScreenTest() {
        SetUpApp();
        std::filesystem::remove_all(app.File("skins"));
        std::filesystem::create_directory_symlink(VK_RENDERED_SKINS, app.File("skins"));
        settings.LoadSettings();
        settings.values.ShowClock = true;
        MakeScreen("playlists");
    }
    void Show(int width, int height, const char* skinFile = "Torque.skn") {
        state.ScreenWidth = width;
        state.ScreenHeight = height;
        state.CurrentSkinFile = skinFile;
        skin.LoadSkin();
        host.resize(width, height);
        menu = std::make_unique<velkorandum>(
            ControlContext{state, settings.values, skin, pictures, clock, pump, commands},
            MenuNeeds(), &host);
        host.show();
        menu->menu().ReShow();
        QCoreApplication::processEvents();
    }
    PictureCache pictures{skin};
    QWidget host;
    std::unique_ptr<velkorandum> menu;
};

TEST_F(MenuScreenTest, EverythingLiesOnTheScreenAtEverySize) {
    for (const char* skinFile : {"Torque.skn", "TorqueNight.skn"})
        for (const QSize size : PanelSizes) {
            Show(size.width(), size.height(), skinFile);
            EXPECT_EQ(menu->size(), size);
            ExpectChildrenInside(*menu);
            EXPECT_EQ(menu->menu().Icons().size(), 7u);
        }
}

TEST_F(MenuScreenTest, TheChosenTileIsUnmistakableATouchedOneStartsAndTheBarHasItsButtons) {
    Show(800, 480);
    const QImage before = menu->grab().toImage();
    menu->menu().MoveDown();
    EXPECT_GT(DifferingPixels(before, menu->grab().toImage()), 800 * 480 / 50);
    menu->menu().MoveUp();
    EXPECT_EQ(DifferingPixels(before, menu->grab().toImage()), 0);
    for (const MenuIconData& icon : menu->menu().Icons())
        if (icon.function == "2")
            Tap(host, {static_cast<int>((icon.iconleft + icon.iconwidth / 2) * 800),
                       static_cast<int>((icon.icontop + icon.iconheight / 2) * 480)});
    EXPECT_TRUE(Told("playlists.ReShow"));
    menu->menu().ReShow();
    Tap(host, {400, 470});
    EXPECT_EQ(settingsOpened, 1);
    menu->menu().ReShow();
    Tap(host, {790, 420});
    EXPECT_EQ(exits, 1) << "it is touched above what is drawn";
}

TEST_F(MenuScreenTest, AnotherScreenComesOnThePictureForThat) {
    Show(800, 480);
    menu->ShowLoading("Loading");
    const QImage picture(QString::fromStdString(app.File("skins/Torque/loading.jpg")));
    const QPoint corner = (QPoint(800, 480) - QPoint(picture.width(), picture.height())) / 2;
    EXPECT_EQ(menu->grab().toImage().pixel(corner), picture.pixel(0, 0)) << "in its own size";
    menu->ShowBanner("");
    EXPECT_NE(menu->grab().toImage().pixel(corner), picture.pixel(0, 0));
}

TEST_F(MenuScreenTest, ASkinWithoutPicturesStaysUsable) {
    std::filesystem::remove(app.File("skins"));
    app.Write("skins/Bare.skn",
              "[Colors]\nClockForegroundClr=1\n[IconNames]\nNames=one two\n"
              "[one]\nicontop=0\niconleft=0\niconheight=0.4\niconwidth=0.4\nfunction=2\n"
              "of_right=2\n[two]\nicontop=0\niconleft=0.5\niconheight=0.4\niconwidth=0.4\n");
    Show(640, 480, "Bare.skn");
    const QImage before = menu->grab().toImage();
    menu->menu().MoveDown();
    menu->menu().MoveRight();
    EXPECT_GT(DifferingPixels(before, menu->grab().toImage()), 0);
    EXPECT_TRUE(dialogs.shown.empty());
    app.Write("skins/None.skn", "[Colors]\nClockForegroundClr=1\n");
    Show(800, 480, "None.skn");
    const QImage plain = menu->grab().toImage();
    Tap(host, {260, 100}); // the second of its own icons
    EXPECT_TRUE(Told("playlists.ReShow"));
    app.Write("skins/Full.skn", "[BGimages]\nmainmenu=all.png\n");
    app.MakeFolder("skins/Full");
    plain.save(QString::fromStdString(app.File("skins/Full/quit.gif")), "png");
    state.CurrentSkinFile = "Full.skn";
    skin.LoadSkin();
    menu->DoLayout();
    EXPECT_GT(DifferingPixels(plain, menu->grab().toImage()), 0);
}

} // namespace
} // namespace vk::test
