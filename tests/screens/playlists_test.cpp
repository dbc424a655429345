// The browser's screen: that touches and keys reach the operations, and that all of it fits.
#include "browser/screen/playlists.h"
#include "skin/controls/looks.h"
#include "tests/support/core_fixture.h"
#include "tests/support/recording_screen.h"
#include "tests/support/sound_card.h"
#include "tests/support/widgets.h"

#include <QApplication>
#include <QFontMetrics>
#include <QWheelEvent>

#include <gmock/gmock.h>

namespace vk {
namespace {

constexpr const char* SkinText =
    "[BGimages]\nplaylist=none.jpg\n[Colors]\nListForegroundClr=1\n[FONTS]\n"
    "clockfontname=DejaVu Sans\nclockfontsize=14\nheadingbarfontname=DejaVu Sans\n"
    "headingbarfontbold=true\nheadingbarfontsize=18\nListtextfontname=DejaVu Sans\n"
    "Listtextfontsize=22\n";

class PlaylistsScreen : public testing::Test {
  protected:
    PlaylistsScreen() {
        extensions.AudioExtensionList = {"MP3"};
        extensions.VideoExtensionList = {"AVI"};
        core.settings.values.MediaDir = state.CurrentPath = media.Path();
        core.settings.values.CDDriveLetter = "/cd";
        core.settings.values.dlink_enabled = true;
        core.settings.values.ShowClock = true;
        core.settings.values.UseBrowseHistory = true;
        core.settings.values.ListSpacing = "3";
        core.state.CurrentSkinFile = "My.skn";
        core.app.Write("skins/My.skn", SkinText);
        skin.LoadSkin();
        core.screens.Add("playmp3", player);
        core.screens.Add("velkorandum", menu);
        core.screens.Add("frmGPS", gps);
        for (const char* name : {"a/x.mp3", "b/y.mp3", "c.mp3", "d.avi"})
            media.Write(name, "x");
        Resize({800, 480});
    }
    ~PlaylistsScreen() override { core.screens.Remove(BrowserName); }
    /// Makes the screen for that size and enters it.
    void Resize(QSize size) {
        core.state.ScreenWidth = size.width();
        core.state.ScreenHeight = size.height();
        host.resize(size);
        const BrowserNeeds needs{core.base,
                                 state,
                                 keys,
                                 {tags, extensions},
                                 {.audio = audio,
                                  .video = video,
                                  .loudness = sound.loudness,
                                  .transport = player,
                                  .HasTuner = [](std::int32_t) { return true; }}};
        screen = std::make_unique<playlists>(
            playlists::Needs{{core.state, core.settings.values, skin, pictures, core.clock,
                              core.pump, core.commands},
                             needs},
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
        test::Click(part, part.rect().center());
    }
    std::string Title() { return static_cast<ShadedLabel&>(Part("lblCurrentFolderStatus")).Text(); }
    std::string Loading() {
        auto& label = static_cast<ShadedLabel&>(Part("lbLoading"));
        return label.isVisible() ? label.Text() : "";
    }
    ListModel& List() { return static_cast<UCListBox&>(Part("UCListBox")).model(); }

    test::CoreFixture core;
    test::TempFolder media;
    BrowserState state;
    AudioState audio;
    VideoState video;
    KeyMap keys;
    test::RecordingPlayerScreen player;
    test::SoundCard sound{core};
    test::RecordingScreen menu, gps;
    ID3 reader{{core.log, core.dialogs}, core.state.DecimalSymbol};
    MediaExtensions extensions;
    MediaTags tags{extensions, reader};
    SkinStore skin{
        {core.state, core.settings, core.fonts, core.dialogs, core.report, [] { return 800; }}};
    PictureCache pictures{skin};
    QWidget host;
    std::unique_ptr<playlists> screen;
};

TEST_F(PlaylistsScreen, TouchesAndKeysReachTheirOperations) {
    test::Click(Part("UCListBox"), {100, List().RowHeight * 5 / 2});
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
    EXPECT_EQ(Loading(), "You must first play an audio file before resuming.");
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
    const QPointF here(300, 200);
    QWheelEvent half(here, here, {}, {0, -60}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                     false);
    QApplication::sendEvent(screen.get(), &half);
    EXPECT_EQ(List().iSelected, 0);
    QApplication::sendEvent(screen.get(), &half);
    screen->DoLayout();
    EXPECT_EQ(List().iSelected, 1);
    EXPECT_EQ(List().ItemCount(), 5);
}

TEST_F(PlaylistsScreen, AListIsBuiltByTouchInTwoListsSideBySide) {
    const auto touchRow = [this](QWidget& list, int row) {
        core.clock.Advance(250); // as long as a list that has changed hears nothing
        const int height = static_cast<UCListBox&>(list).model().RowHeight;
        test::Click(list, {list.width() / 2, height * (2 * row + 1) / 2});
    };
    for (const QSize size : test::PanelSizes) {
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
        test::ExpectChildrenInside(*screen);
        EXPECT_FALSE(left.geometry().intersects(right.geometry()));
        EXPECT_GE(std::min(left.width(), right.width()), size.width() * 45 / 100);
        EXPECT_GE(Part("imjAdd").width(), size.height() * 15 / 100);
        const auto& built = static_cast<UCListBox&>(right).model();
        touchRow(left, 2);
        EXPECT_EQ(built.Row(0).descriptor, "FILE:" + media.Path() + "/c.mp3");
        const QImage leftInFront = screen->grab().toImage();
        Tap("imjAdd");
        EXPECT_GT(test::DifferingPixels(leftInFront, screen->grab().toImage()), 500)
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
bool Fits(const std::string& text, const QWidget& label, const SkinFont& font, double shrink) {
    QFont smallest = ToQFont(font);
    smallest.setPixelSize(static_cast<int>(smallest.pixelSize() * shrink));
    const QRect needed = QFontMetrics(smallest).boundingRect(label.rect(), Qt::TextWordWrap,
                                                             QString::fromStdString(text));
    return needed.width() <= label.width() && needed.height() <= label.height();
}

TEST_F(PlaylistsScreen, EverythingFitsAtEverySize) {
    const std::tuple<const char*, const char*, SkinFont, double> texts[] = {
        {"Browsing removable drive: /media/stick", "lblCurrentFolderStatus",
         skin.data().headingbarfont, 0.6},
        {"External Applications", "lblCurrentFolderStatus", skin.data().headingbarfont, 0.6},
        {"Wednesday, September 30, 2026\n12:00 PM", "ClockBar", skin.data().clockfont, 0.5},
        {"You must first play an audio file before resuming.", "lbLoading",
         skin.data().headingbarfont, 0.6}};
    for (const QSize size : test::PanelSizes) {
        SCOPED_TRACE(size.width());
        Resize(size);
        Tap("Image7");
        test::ExpectChildrenInside(*screen);
        for (QWidget* part : screen->findChildren<QWidget*>())
            if (part->isVisible() && dynamic_cast<TouchButton*>(part) && part != &Part("imgHome")) {
                EXPECT_GE(std::min(part->width(), part->height()), size.height() * 15 / 100);
            }
        for (const auto& [text, label, font, shrink] : texts)
            EXPECT_TRUE(Fits(text, Part(label), font, shrink)) << text;
        EXPECT_GE(List().iMaxVis, 5);
    }
}

} // namespace
} // namespace vk
