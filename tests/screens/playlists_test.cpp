// The browser's screen: that touches and keys reach the operations, and that all of it fits.
#include "browser/screen/playlists.h"
#include "skin/controls/looks.h"
#include "tests/browser/browser_fixture.h"
#include "tests/support/widgets.h"

#include <QApplication>
#include <QFontMetrics>
#include <QWheelEvent>

namespace vk::test {

constexpr const char* SkinText =
    "[BGimages]\nplaylist=none.jpg\n[Colors]\nListForegroundClr=1\n[FONTS]\n"
    "clockfontname=DejaVu Sans\nclockfontsize=14\nheadingbarfontname=DejaVu Sans\n"
    "headingbarfontbold=true\nheadingbarfontsize=18\nListtextfontname=DejaVu Sans\n"
    "Listtextfontsize=22\n";

class PlaylistsScreen : public BrowserTest {
  public:
    PlaylistsScreen() {
        core.settings.values.dlink_enabled = true;
        core.settings.values.ShowClock = true;
        core.settings.values.ListSpacing = "3";
        core.state.CurrentSkinFile = "My.skn";
        core.app.Write("skins/My.skn", SkinText);
        skin.LoadSkin();
        core.volumes.drives.clear();
        core.screens.Add("frmGPS", gps);
        MediaFiles({"a/x.mp3", "b/y.mp3", "c.mp3", "d.avi"});
        Resize({800, 480});
    }
    ~PlaylistsScreen() override { core.screens.Remove(BrowserName); }
    /// Makes the screen for that size and enters it.
    void Resize(QSize size) {
        core.state.ScreenWidth = size.width();
        core.state.ScreenHeight = size.height();
        host.resize(size);
        screen = std::make_unique<playlists>(
            playlists::Needs{{core.state, core.settings.values, skin, pictures, core.clock,
                              core.pump, core.commands},
                             Needs()},
            &host);
        core.screens.Add(BrowserName, screen->browser(), *screen);
        host.show();
        screen->browser().ReShow();
    }
    QWidget& Part(const char* name) {
        auto* part = screen->findChild<QWidget*>(QString::fromLatin1(name));
        EXPECT_NE(part, nullptr) << name;
        return *part;
    }
    void Tap(const char* name) {
        QWidget& part = Part(name);
        EXPECT_TRUE(part.isVisible()) << name;
        Click(part, part.rect().center());
    }
    std::string Title() { return static_cast<ShadedLabel&>(Part("lblCurrentFolderStatus")).Text(); }
    ListModel& List() { return static_cast<UCListBox&>(Part("UCListBox")).model(); }

    RecordingScreen gps;
    SkinStore skin{
        {core.state, core.settings, core.fonts, core.dialogs, core.report, [] { return 800; }}};
    PictureCache pictures{skin};
    QWidget host;
    std::unique_ptr<playlists> screen;
};

TEST_F(PlaylistsScreen, TouchesAndKeysReachTheirOperations) {
    Click(Part("UCListBox"), {100, List().RowHeight * 5 / 2});
    EXPECT_EQ(Title(), " b");
    Tap("Image11");
    EXPECT_EQ(Title(), "Browse By Directory ");
    EXPECT_EQ(List().iSelected, 2);
    EXPECT_TRUE(screen->browser().Form_KeyDown("38"));
    EXPECT_TRUE(screen->browser().DoAction(InputCode("13", keys)));
    EXPECT_EQ(Title(), " a");
    audio.PlayMode = PlayAudio;
    Tap("Image6");
    EXPECT_EQ(player.Count("DoPause"), 1);
    Tap("Image12");
    Tap("Image19");
    const auto& notice = static_cast<ShadedLabel&>(Part("lbLoading"));
    EXPECT_TRUE(notice.isVisible());
    EXPECT_EQ(notice.Text(), "You must first play an audio file before resuming.");
    Tap("Image15");
    EXPECT_EQ(audio.PlayMode, PlayFM);
    screen->browser().ReShow();
    Tap("imgHome");
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(PlaylistsScreen, TheRarerButtonsComeOutOfTheBottomBar) {
    EXPECT_FALSE(Part("Image14").isVisible());
    Tap("Image7");
    EXPECT_EQ(core.clock.slept, 60);
    Tap("Image9");
    Tap("Image10");
    EXPECT_EQ(sound.mixer.Level(MixerLine::Master), 20);
    core.clock.Advance(1000);
    EXPECT_EQ(sound.mixer.Level(MixerLine::Master), 20) << "a button let go does not go on";
    Tap("Image14");
    EXPECT_EQ(Title(), "External Applications");
    EXPECT_FALSE(Part("Image14").isVisible());
    Tap("Image7");
    Tap("Image17");
    EXPECT_EQ(gps.Count("ReShow"), 1);
    core.settings.values.dlink_enabled = false;
    core.settings.values.CDDriveLetter = "NONE";
    core.screens.Remove("frmGPS");
    screen->browser().ReShow();
    Tap("Image7");
    for (const char* name : {"Image15", "Image16", "Image17"})
        EXPECT_FALSE(Part(name).isVisible()) << name << " leads to what is not there";
}

TEST_F(PlaylistsScreen, TheWheelAndAReloadKeepTheList) {
    QWheelEvent half({9, 9}, {9, 9}, {}, {0, -60}, {}, {}, Qt::NoScrollPhase, false);
    for (const int row : {0, 1}) {
        QApplication::sendEvent(screen.get(), &half);
        EXPECT_EQ(List().iSelected, row);
    }
    screen->DoLayout();
    EXPECT_EQ(List().iSelected, 1);
    EXPECT_EQ(List().ItemCount(), 5);
}

TEST_F(PlaylistsScreen, AListIsBuiltByTouchInTwoListsSideBySide) {
    const auto touchRow = [this](QWidget& box, int row) {
        core.clock.Advance(250); // as long as a list that has changed hears nothing
        const int height = static_cast<UCListBox&>(box).model().RowHeight;
        Click(box, {box.width() / 2, height * (2 * row + 1) / 2});
    };
    for (const QSize size : PanelSizes) {
        SCOPED_TRACE(size.width());
        state.ListMode = ListFromMenu;
        keys[Action::vup] = "85"; // which is a letter, too
        Resize(size);
        EXPECT_TRUE(screen->browser().Repeats(InputCode(keys[Action::vup], keys)));
        QWidget& left = Part("UCListBox");
        QWidget& right = Part("UCListBox2");
        EXPECT_FALSE(right.isVisible());
        EXPECT_FALSE(Part("imjSave").isVisible());
        touchRow(left, 0);
        EXPECT_EQ(Title(), "Building Playlist | Browse By Directory ");
        ExpectChildrenInside(*screen);
        EXPECT_FALSE(left.geometry().intersects(right.geometry()));
        EXPECT_GE(std::min(left.width(), right.width()), size.width() * 45 / 100);
        EXPECT_GE(Part("imjAdd").width(), size.height() * 15 / 100);
        const auto& built = static_cast<UCListBox&>(right).model();
        touchRow(left, 2);
        EXPECT_EQ(built.Row(0).descriptor, "FILE:" + media + "/c.mp3");
        const QImage leftInFront = screen->grab().toImage();
        Tap("imjAdd");
        EXPECT_GT(DifferingPixels(leftInFront, screen->grab().toImage()), 500)
            << "the list that the keys work is seen";
        Tap("imjSave");
        EXPECT_FALSE(left.isVisible() || right.isVisible()) << "the keyboard has their place";
        EXPECT_FALSE(screen->browser().Repeats(InputCode(keys[Action::vup], keys)));
        EXPECT_TRUE(screen->browser().Form_KeyDown("27"));
        EXPECT_TRUE(left.isVisible() && right.isVisible());
        touchRow(right, 0);
        EXPECT_EQ(built.Row(0).first, NoValidFilenames);
        Tap("imjSave");
        EXPECT_FALSE(right.isVisible());
        EXPECT_EQ(left.width(), size.width() - 2 * (size.width() * 2 / 100));
    }
}

// True when the text, wrapped if need be, stands whole in the label at the smallest size it may
// shrink to.
static bool Fits(const char* text, const QWidget& label, const SkinFont& font, double shrink) {
    QFont smallest = ToQFont(font);
    smallest.setPixelSize(static_cast<int>(smallest.pixelSize() * shrink));
    const QRect needed =
        QFontMetrics(smallest).boundingRect(label.rect(), Qt::TextWordWrap, ToQString(text));
    return needed.width() <= label.width() && needed.height() <= label.height();
}

TEST_F(PlaylistsScreen, EverythingFitsAtEverySize) {
    const SkinFont &bar = skin.data().headingbarfont, &clock = skin.data().clockfont;
    const std::tuple<const char*, const char*, SkinFont, double> texts[] = {
        {"Browsing removable drive: /media/stick", "lblCurrentFolderStatus", bar, 0.6},
        {"External Applications", "lblCurrentFolderStatus", bar, 0.6},
        {"Wednesday, September 30, 2026\n12:00 PM", "ClockBar", clock, 0.5},
        {"You must first play an audio file before resuming.", "lbLoading", bar, 0.6}};
    for (const QSize size : PanelSizes) {
        SCOPED_TRACE(size.width());
        Resize(size);
        Tap("Image7");
        ExpectChildrenInside(*screen);
        for (const auto& [text, label, font, shrink] : texts)
            EXPECT_TRUE(Fits(text, Part(label), font, shrink)) << text;
        EXPECT_GE(List().iMaxVis, 5);
    }
}

} // namespace vk::test
