#include "skin/controls/black_background.h"
#include "skin/controls/looks.h"
#include "skin/controls/menu_icon.h"
#include "skin/controls/shaded_label.h"
#include "skin/controls/touch_button.h"
#include "skin/controls/uc_blit_box.h"
#include "skin/controls/uc_scroll_text.h"
#include "tests/skin/controls_fixture.h"

namespace vk::test {

struct ControlsTest : testing::Test, ControlsFixture {};

constexpr QPoint Here(5, 5), Beside(600, 5);

constexpr SkinColour White{0xFFFFFF};

TEST_F(ControlsTest, FontsAreInPixelsOfTheSkinsScale) {
    const SkinFont font{"DejaVu Sans", true, true, 18};
    EXPECT_EQ(ToQFont(font, 0.5).pixelSize(), 12);
    EXPECT_TRUE(ToQFont(font).bold() && ToQFont(font).italic());
    EXPECT_EQ(ToQFont({"DejaVu Sans", false, false, -3}).pixelSize(), 6);
    EXPECT_EQ(ToQFont({"DejaVu Sans", false, false, 32767}).pixelSize(), 300);
    EXPECT_EQ(ToQColor({0x010203}).rgb(), 0xFF030201u);
    EXPECT_EQ(ToQString("\xE9t\xE9"), QString::fromUtf8("\xC3\xA9t\xC3\xA9"));
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.01);
    EXPECT_EQ(ReadableOn(Qt::yellow), QColor(Qt::black));
    EXPECT_EQ(ReadableOn(Qt::darkBlue), QColor(Qt::white));
}

TEST_F(ControlsTest, PicturesAreKeptUntilAnotherSkinIsLoaded) {
    Picture("a.png", {10, 10}, 0xFF111111);
    const auto colour = [this] {
        return pictures.Picture("a.png", {40, 20}).toImage().pixel(0, 0);
    };
    EXPECT_EQ(pictures.Picture("a.png", {40, 20}).size(), QSize(20, 20));
    EXPECT_EQ(pictures.Picture("a.png", {40, 20}, PictureFit::Stretch).size(), QSize(40, 20));
    Picture("a.png", {10, 10}, 0xFF222222);
    EXPECT_EQ(colour(), 0xFF111111);
    skin.LoadSkin();
    EXPECT_EQ(colour(), 0xFF222222);
    for (const int size : {40, 20, 40})
        EXPECT_TRUE(pictures.Picture("none.png", {size, size}).isNull());
    EXPECT_EQ(LinesLogged("lacks none.png"), 1);
    app.MakeFolder("skins/Torque");
    Picture("../Torque/a.png", {10, 10}, 0xFF333333);
    app.Write("skins/Torque.skn", "[Colors]\n");
    app.Write("skins/My.skn", "damaged");
    dialogs.onShown = [&] { EXPECT_EQ(colour(), 0xFF333333) << "drawn behind the message"; };
    skin.LoadSkin();
    EXPECT_EQ(colour(), 0xFF333333);
}

TEST_F(ControlsTest, BrokenHugeAndStrangePicturesLeaveTheBoxEmpty) {
    UCBlitBox box(&host);
    box.resize(100, 100);
    const std::string good = Picture("good.png", {200, 50}, 0xFF00FE00);
    EXPECT_TRUE(box.ShowPic(good));
    EXPECT_EQ(Count(Drawn(box), 0xFF00FE00), 100 * 25);
    box.resize(200, 100);
    EXPECT_EQ(Count(Drawn(box), 0xFF00FE00), 200 * 50);
    const std::string bytes = app.Read("skins/My/good.png");
    const std::string large = app.File("large.jpg");
    QImage(8000, 6400, QImage::Format_Grayscale8).save(QString::fromStdString(large));
    EXPECT_EQ(LoadPicture(large, {100, 100}, PictureFit::Keep).size(), QSize(100, 80))
        << "a JPEG of more than is decoded whole is read small";
    // A whole picture of 20 million black pixels, https://netpbm.sourceforge.net/doc/pbm.html
    const std::string huge = "P4\n5000 4000\n" + std::string(5000 / 8 * 4000, '\xFF');
    for (const std::string& path :
         {app.Write("cut.png", bytes.substr(0, 40)), app.Write("huge.pbm", huge),
          app.Write("text.jpg", "no picture"), app.Write("empty.gif", ""), app.File("missing.png"),
          app.Path(), std::string("/dev/zero"), std::string()}) {
        EXPECT_FALSE(box.ShowPic(path)) << path;
        EXPECT_EQ(Count(Drawn(box), 0xFF00FE00), 0) << path;
    }
}

struct ScrollTextTest : ControlsTest {
    ScrollTextTest() {
        line.setGeometry(0, 0, 300, 60);
        line.show();
    }
    void Show(const std::string& text) {
        line.ScrollText(text, White, Qt::black, {"DejaVu Sans", false, false, 20});
    }
    UCScrollText line{context, &host};
};

TEST_F(ScrollTextTest, AFittingTextStandsInTheMiddle) {
    line.SetBackground("back.png");
    Show("Short");
    const QImage before = Drawn(line);
    clock.Advance(1000);
    EXPECT_EQ(line.Position(), 0);
    EXPECT_EQ(Drawn(line), before);
    const int text = line.TestFitGetX("Short", {"DejaVu Sans", false, false, 20});
    const int margin = (300 - text) / 2;
    for (const int side : {0, 300 - margin + 3})
        EXPECT_EQ(Count(before.copy(side, 0, margin - 3, 60), 0xFFFFFFFF), 0);
    EXPECT_GT(Count(before.copy(margin - 3, 0, 16, 60), 0xFFFFFFFF), 0);
    EXPECT_EQ(before.pixel(0, 0), Ground);
}

TEST_F(ScrollTextTest, ALongTextRunsAPixelEachFifteenMillisecondsAndComesRound) {
    Show(std::string(30, 'm'));
    const int length = line.GetLabelSizeX();
    EXPECT_GT(length, 300);
    const QImage first = Drawn(line);
    clock.Advance(150);
    EXPECT_EQ(line.Position(), -10);
    EXPECT_NE(Drawn(line), first);
    line.hide();
    clock.Advance(150);
    EXPECT_EQ(line.Position(), -10);
    line.show();
    int steps = 10;
    for (; line.Position() != -1 && steps < 2 * length + 600; ++steps)
        clock.Advance(15);
    EXPECT_GT(steps, length);
    clock.Advance(15 * (steps - 2));
    EXPECT_EQ(Drawn(line), first) << "it comes round without a jump";
    settings.values.UseAnimation = false;
    Show(std::string(100000, 'm'));
    EXPECT_LE(line.GetLabelSizeX(), 300) << "without animation it is cut";
    clock.Advance(100);
    EXPECT_EQ(line.Position(), 0);
    EXPECT_EQ(line.Text().size(), 100000u);
    line.ScrollText("A", White, Qt::black, {"DejaVu Sans", false, false, 144});
    EXPECT_LE(line.GetLabelSizeY(), line.height()) << "a large font makes way";
}

TEST_F(ControlsTest, AMenuIconShowsItsStateAndAnswersToTouch) {
    Picture("plain.png", {10, 10}, 0xFF000051);
    Picture("chosen.png", {10, 10}, 0xFF000052);
    LoadColours("[IconNames]\nNames=Audio x\n[Audio]\nicontop=0.5\niconleft=.25\n"
                "iconheight=0.2\niconwidth=0.1\niconpictureunsel=plain.png\n"
                "iconpicturesel=chosen.png\n");
    MenuIcon icon(context, skin.ReadMenuIcons().at(0), &host);
    icon.Place({800, 480});
    EXPECT_EQ(icon.geometry(), QRect(200, 240, 80, 96));
    EXPECT_EQ(Count(Drawn(icon), 0xFF000051), 80 * 96);
    icon.SetSelected(true);
    EXPECT_EQ(Count(Drawn(icon), 0xFF000052), 80 * 96);
    int clicks = 0;
    icon.onClick = [&] { ++clicks; };
    Press(icon, Here);
    Release(icon, Beside);
    EXPECT_EQ(clicks, 0) << "the finger slid away";
    Click(icon, Here);
    commands.Run([&] { Click(icon, Here); });
    EXPECT_EQ(clicks, 1);
    icon.SelectedPic = "missing.png";
    EXPECT_GT(Count(Drawn(icon), Marking), 80 * 96 / 2) << "a plate stands in";
}

TEST_F(ControlsTest, ATouchButtonKeepsItsPictureAndTellsPressReleaseAndClick) {
    Picture("play.png", {50, 50}, 0xFF000061);
    Picture("playsel.png", {50, 50}, 0xFF000062);
    TouchButton button(context, &host);
    button.resize(120, 80);
    button.show();
    button.SetPicture("play.png");
    button.SetPicture("missing.png");
    EXPECT_EQ(Count(Drawn(button), 0xFF000061), 80 * 80);
    button.SetPressedPicture("playsel.png");
    std::string calls;
    button.onPress = [&] {
        calls += 'p';
        EXPECT_EQ(Count(Drawn(button), 0xFF000062), 80 * 80);
    };
    button.onRelease = [&](bool inside) { calls += inside ? 'r' : 'o'; };
    button.onClick = [&] { calls += 'c'; };
    Click(button, Here);
    Press(button, Here);
    Release(button, Beside);
    Press(button, Here);
    button.hide();
    EXPECT_EQ(calls, "prcpopo");
    button.show();
    calls.clear();
    commands.Run([&] { Click(button, Here); });
    EXPECT_EQ(calls, "r") << "a release is never lost";
    button.onPress = {};
    button.whileBusy = Commands::When::Queue;
    commands.Run([&] { Click(button, Here); });
    EXPECT_EQ(calls, "rrc");
    EXPECT_EQ(button.focusPolicy(), Qt::NoFocus);
    TouchButton bare(context, &host);
    bare.resize(120, 80);
    const QImage empty = Drawn(bare);
    bare.SetCaption("Next");
    bare.SetPicture("next.png");
    EXPECT_NE(Drawn(bare), empty);
    Picture("next.png", {50, 50}, 0xFF000063);
    skin.LoadSkin();
    bare.SetFace({0, 40, 120, 40});
    EXPECT_EQ(Count(Drawn(bare), 0xFF000063), 40 * 40) << "another skin has it";
}

TEST_F(ControlsTest, ALabelCutsWrapsShrinksAndStandsOnItsGround) {
    ShadedLabel label(&host);
    label.resize(200, 60);
    label.SetLook({"DejaVu Sans", false, false, 18}, White, skin.data());
    label.SetGround(QColor::fromRgb(Ground));
    label.SetText("A text that is far too long for the label");
    const QImage cut = Drawn(label);
    EXPECT_GT(Count(cut, Ground), 200 * 60 / 2);
    label.SetWrap(true);
    const QImage wrapped = Drawn(label);
    EXPECT_NE(wrapped, cut);
    label.SetShrink(0.3);
    EXPECT_NE(Drawn(label), wrapped);
    label.SetShadow(Qt::red);
    EXPECT_GT(Count(Drawn(label), 0xFFFF0000), 5);
    int clicks = 0;
    Click(label, Here);
    label.OnClick(commands, [&] { ++clicks; });
    Click(label, Here);
    commands.Run([&] { Click(label, Here); });
    EXPECT_EQ(clicks, 1);
    label.SetWrap(false);
    label.SetShrink(1);
    for (const bool middle : {false, true}) {
        if (middle) label.SetElide(Qt::ElideMiddle);
        label.SetText("/media/disc/Music/Somebody/An Album/One.mp3");
        const QImage one = Drawn(label);
        label.SetText("/media/disc/Music/Somebody/An Album/Two.mp3");
        EXPECT_EQ(Drawn(label) != one, middle) << "cut in its middle it keeps the file's name";
    }
    const auto above = [&] { return Count(Drawn(label).copy(0, 0, 200, 14), Ground); };
    EXPECT_EQ(above(), 200 * 14);
    label.SetText("First play an audio file");
    EXPECT_LT(above(), 200 * 14) << "two lines show all of it";
}

TEST_F(ControlsTest, TheLoadingBarFollowsTheStart) {
    BlackBackground black(state, screens, skin, &host);
    const auto bar = [&] { return Drawn(black).copy(0, 422, 800, 20); };
    black.Load();
    EXPECT_EQ(screens.CurrentForm, "BlackBackground");
    EXPECT_TRUE(black.isVisible());
    EXPECT_EQ(black.size(), host.size());
    const QImage empty = bar();
    state.ScreenWidth = state.ScreenHeight = 240;
    EXPECT_EQ(Count(bar(), 0xFF000000), 800 * 20) << "it stands where a smaller interface will";
    state.ScreenWidth = 800;
    state.ScreenHeight = 480;
    black.InitProgress(0, 13);
    EXPECT_DOUBLE_EQ(black.Filled(), 1.0 / 14);
    black.InitProgress(5, 1);
    const std::tuple<std::function<void()>, double> steps[] = {
        {[&] { black.SetProgress(2); }, 0.5},
        {[&] { black.SetProgress(99); }, 1},
        {[&] { black.SetProgress(1); }, 0.25},
        {[&] { black.SetProgressToMax(); }, 1}};
    for (QImage before = empty; const auto& [step, filled] : steps) {
        step();
        EXPECT_DOUBLE_EQ(black.Filled(), filled);
        EXPECT_NE(std::exchange(before, bar()), bar());
    }
    black.ClearScreen();
    EXPECT_EQ(bar(), empty);
    EXPECT_EQ(black.Range(), 14);
    screens.Add("BlackBackground", black);
    EXPECT_FALSE(screens.Current()->Form_KeyDown("13"));
    screens.Current()->Hide();
    EXPECT_TRUE(black.isVisible()) << "it stays behind the others";
}

} // namespace vk::test
