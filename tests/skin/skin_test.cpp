#include "skin/skin.h"
#include "tests/support/core_fixture.h"

#include <gtest/gtest.h>

namespace vk::test {

struct SkinTest : testing::Test, CoreFixture {
    SkinTest() {
        state.ScreenWidth = 800;
        state.ScreenHeight = 480;
    }
    void Load(const std::string& contents) {
        state.CurrentSkinFile = "My.skn";
        app.Write("skins/My.skn", contents);
        skin.LoadSkin();
    }
    int realWidth = 800;
    SkinStore skin{{state, settings, fonts, dialogs, report, [this] { return realWidth; }}};
};

TEST_F(SkinTest, ReadsColoursFontsAndBackgrounds) {
    fonts.missing = {"Nowhere"};
    Load(
        "[BGimages]\nmainmenu=m.png\n[COLORS]\nClockForegroundClr=0\nClockBackgroundClr=0\n"
        "OutlineBoxClr=66051\n[fonts]\nclockfontname=Nowhere\nclockfontsize=9\nTitlefontname=Good\n"
        "Titlefontbold=true\nTitlefontsize=30\n[DMFS]\nitemindex=2\n");
    const SkinData& d = skin.data();
    EXPECT_EQ(d.mainmenu, "m.png");
    EXPECT_EQ(d.ClockForegroundClr.value, 0xFFFFFF) << "black is white here";
    EXPECT_EQ(d.ClockBackgroundClr.value, 0);
    const SkinColour outline = d.OutlineBoxClr;
    EXPECT_EQ(outline.Red() * 100 + outline.Green() * 10 + outline.Blue(), 321);
    EXPECT_EQ(d.clockfont.name + d.Titlefont.name, "VerdanaGood");
    EXPECT_TRUE(d.Titlefont.bold && d.Titlefont.size == 30);
    EXPECT_EQ(d.itemindex, 2);
    EXPECT_EQ(skin.PicturePath("a.gif"), app.Path() + "/skins/My/a.gif");
}

TEST_F(SkinTest, SmallSizesFollowTheRealScreen) {
    for (const auto& [width, text, list] :
         {std::tuple{640, 10, 18}, {800, 12, 20}, {1024, 14, 22}, {1152, 16, 24}, {1280, 9, 9}}) {
        realWidth = width;
        Load("[Colors]\n[FONTS]\nclockfontsize=9\nListtextfontsize=9\n");
        EXPECT_EQ(skin.data().clockfont.size, text) << width;
        EXPECT_EQ(skin.data().Listtextfont.size, list) << width;
    }
}

TEST_F(SkinTest, ScalingComparesBothSizesWithTheWidth) {
    Load("[Colors]\n[NativeRes]\nX=640\nY=480\n");
    EXPECT_FLOAT_EQ(skin.data().FontScaleX, 1);
    settings.values.UseScaling = true;
    for (const char* size : {"X=400\nY=240\n", "X=800\nY=800\n"}) { // the second keeps the scale
        Load(std::string("[Colors]\n[NativeRes]\n") + size);
        EXPECT_NEAR(skin.data().FontScaleX, 1.3195, 0.001);
        EXPECT_NEAR(skin.data().FontScaleY, 1.0281, 0.001);
        EXPECT_NEAR(skin.data().FontScale(), 1.3566, 0.001) << "both are multiplied into a size";
    }
}

TEST_F(SkinTest, ABrokenSkinLeadsToTheSafeOneThatMayBeBrokenToo) {
    state.CurrentSkinFile = "Torque.skn";
    skin.LoadSkin();
    EXPECT_EQ(dialogs.shown.size(), 1u);
    EXPECT_TRUE(Logged("using built-in colours"));
    EXPECT_GE(skin.data().Listtextfont.size, 10);
    EXPECT_NE(skin.data().ListForegroundClr.value, 0);
    dialogs.shown.clear();
    app.Write("skins/Torque.skn", "[Colors]\nLineClr=5\n");
    for (const char* section : {"[NativeRes]", "[bgimages]", "[FONTS]", "[IconNames]"})
        Load(std::string(section) + "\nx=1\n");
    EXPECT_TRUE(dialogs.shown.empty()) << "one of these sections makes a skin";
    Load("[DMFS]\nitemindex=1\n");
    EXPECT_EQ(dialogs.shown, std::vector<std::string>{"Skin Error.  Using Safe Mode Skin"});
    EXPECT_EQ(state.CurrentSkinFile, "Torque.skn");
    EXPECT_EQ(skin.data().LineClr.value, 5);
    EXPECT_TRUE(Logged("Skin Error"));
}

TEST_F(SkinTest, ReadsWhatOtherSystemsWriteAndFindsItsFilesInAnyCase) {
    const std::string text = "[Colors]\nLineClr=5\n[BGimages]\nmainmenu=Pics\\M\xC3\xBCNU.png\n"
                             "[colors]\nOutlineBoxClr=7\n[fonts]\n";
    std::string latin = text, wide = "\xFF\xFE";
    latin.replace(latin.find("\xC3\xBC"), 2, "\xFC");
    for (const char byte : latin)
        wide.append({byte, '\0'});
    const std::string picture = app.MakeFolder("skins/my/PICS") + "/m\xC3\xBCnu.PNG";
    app.Write("skins/my/PICS/m\xC3\xBCnu.PNG", "");
    for (const std::string& contents : {text, latin, wide}) {
        Load(contents);
        EXPECT_EQ(skin.data().LineClr.value * 10 + skin.data().OutlineBoxClr.value, 57);
        EXPECT_EQ(skin.PicturePath(skin.data().mainmenu), picture);
    }
    state.CurrentSkinFile = "MY.SKN";
    skin.LoadSkin();
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_EQ(skin.data().LineClr.value, 5);
    EXPECT_TRUE(skin.IsThere("my.SKN"));
    EXPECT_FALSE(skin.IsThere("you.skn"));
    EXPECT_EQ(skin.PicturePath("none.gif"), app.File("skins/my/none.gif"));
}

TEST_F(SkinTest, NumbersAreBoundedAndTheLogSaysWhatASkinLacks) {
    fonts.missing = {"Nowhere"};
    Load("[FONTS]\nclockfontname=Nowhere\nclockfontsize=32767\nTitlefontsize=-9\n[IconNames]\n"
         "Names=a b\n[a]\niconwidth=20\niconleft=-500\nof_left=3\nof_right=2\n");
    EXPECT_EQ(skin.data().clockfont.size, 144);
    EXPECT_EQ(skin.data().Titlefont.size, 22);
    const MenuIconData& icon = skin.ReadMenuIcons().at(0);
    EXPECT_EQ(icon.iconwidth + icon.iconleft, 0) << "as wide as the screen, beginning beside it";
    EXPECT_EQ(icon.of_left * 10 + icon.of_right, 22);
    for (const char* told : {"Nowhere is not installed", "clockfontsize=32767 is out of bounds",
                             "no [Colors] LineClr", "[a] iconwidth=20 is"})
        EXPECT_EQ(LinesLogged(told), 1) << told;
    EXPECT_FALSE(Logged("of_above"));
    state.ScreenWidth = 32000;
    settings.values.UseScaling = true;
    Load("[Colors]\n[NativeRes]\nX=1\nY=1\n");
    EXPECT_EQ(skin.data().FontScale(), 4);
}

TEST_F(SkinTest, OneIconOrNoneThatIsDescribedMakesNoMenu) {
    for (const char* icons : {"[IconNames]\nNames=one\n[Colors]\n[one]\nfunction=1\n",
                              "[IconNames]\nNames=one two\n"}) {
        Load(icons);
        EXPECT_TRUE(skin.ReadMenuIcons().empty()) << icons;
    }
}

} // namespace vk::test
