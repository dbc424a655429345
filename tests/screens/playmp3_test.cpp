#include "playback/screen/playmp3.h"
#include "tests/playback/audio_fixture.h"
#include "tests/support/events.h"
#include "tests/support/widgets.h"

#include <QApplication>
#include <QWheelEvent>

#include <set>

namespace vk::test {

struct Playmp3Test : testing::Test, AudioFixture {
    SkinStore skin{{state, settings, fonts, dialogs, report, [] { return 800; }}};
    PictureCache pictures{skin};
    ControlContext context{state, settings.values, skin, pictures, clock, pump, commands};
    QWidget host;
    std::unique_ptr<playmp3> screen;

    /// Shows the screen with a list of so many tracks, 0 for none.
    void Open(int tracks, int selected = 1, QSize size = {800, 480}) {
        state.ScreenWidth = size.width();
        state.ScreenHeight = size.height();
        state.CurrentSkinFile = "Torque.skn";
        settings.values.bTSModeEnabled = true;
        skin.LoadSkin();
        host.resize(size);
        host.show();
        screen = std::make_unique<playmp3>(context, Needs(), &host);
        screens.Add("playmp3", screen->player(), *screen);
        if (tracks > 0) Choose(tracks, selected);
        screen->player().ReShow();
    }
    QWidget* Named(const char* name) { return screen->findChild<QWidget*>(name); }
    void Touch(QWidget* widget, QPoint at, int ticks = 0) {
        Press(*widget, at);
        clock.Advance(ticks * 100);
        Release(*widget, at);
    }
    void Touch(const char* name, int ticks = 0) {
        Touch(Named(name), Named(name)->rect().center(), ticks);
    }
    UCListBox& List() { return static_cast<UCListBox&>(*Named("UCListBox")); }
};

TEST_F(Playmp3Test, TouchesAndTheWheelReachTheOperations) {
    Open(40, 3);
    Touch("TSPauseBtn");
    EXPECT_TRUE(audio.bPaused);
    Touch("TSPauseBtn");
    for (const auto& [ticks, track] : {std::pair(3, 3), {6, 3}}) {
        Touch("TSFastForwardBtn", ticks);
        EXPECT_EQ(process.track, track);
    }
    EXPECT_EQ(process.Count(WinampForward), 2);
    Touch("TSRewindBtn", 1);
    EXPECT_EQ(process.track, 2);
    Touch("TSshuffleBtn");
    EXPECT_EQ(process.Count(WinampToggleShuffle), 1);
    Touch("TSswmpBtn");
    EXPECT_EQ(playlists.Count("ReShow"), 1);
    screen->player().ReDisplay();
    ListModel& rows = List().model();
    QWheelEvent up({10, 10}, {10, 10}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(screen.get(), &up);
    EXPECT_EQ(rows.iSelected, 1);
    Touch(&List(), {100, 3 * rows.RowHeight / 2});
    EXPECT_EQ(process.track, 1);
    EXPECT_EQ(rows.iHighlight, 1);
    Touch(&List(), {List().width() - 10, List().height() - 3}, 6); // a strip scrolls by lines
    clock.Advance(1000);
    EXPECT_EQ(rows.iSelected, 4);
    Touch("TSdoQuitBtn");
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(Playmp3Test, OffersInTheUpperBarWhatIsNeededLeastOrHasNoRoomBelow) {
    for (const bool radio : {false, true}) {
        settings.values.xmpcr_enabled = radio;
        screens.Remove("playmp3");
        Open(0, 1);
        EXPECT_EQ(Named("TSRadio2MP3Btn")->isVisible(), radio);
    }
    screens.Remove("playmp3");
    Open(0, 1, {1280, 600});
    for (const char* name : {"TSVolUpBtn", "TSVolDownBtn", "TSRunOkBtn", "TSAddFavBtn"})
        EXPECT_TRUE(Named(name)->isVisible()) << name;
    for (const char* name : {"TSMuteBtn", "imgCoverArt"})
        EXPECT_FALSE(Named(name)->isVisible()) << name;
    screens.Remove("playmp3");
    Open(40, 2, {640, 480});
    EXPECT_FALSE(Named("TSAddFavBtn")->isVisible());
    for (const bool open : {true, false, true}) {
        Touch("TSPopUpMenuBtn");
        EXPECT_EQ(Named("TSAddFavBtn")->isVisible(), open);
    }
    Touch("TSAddFavBtn");
    EXPECT_EQ(app.Read("favorites.m3u"), Song(2) + "\r\n");
    EXPECT_FALSE(Named("TSAddFavBtn")->isVisible());
    settings.values.AdjMainVol = true;
    level = 500;
    for (const char* name : {"TSPopUpMenuBtn", "TSPageDownBtn", "TSMuteBtn"})
        Touch(name);
    EXPECT_GT(List().model().iSelected, 2);
    EXPECT_TRUE(sound.loudness.Fading());
    EXPECT_TRUE(Named("TSMuteBtn")->isVisible());
    screen->player().ReDisplay();
    EXPECT_FALSE(Named("TSMuteBtn")->isVisible()) << "entered anew";
}

TEST_F(Playmp3Test, KeysReachEveryButtonAndWorkItAsAFinger) {
    Open(40, 3);
    FocusedButtons& buttons = screen->Buttons();
    ASSERT_TRUE(buttons.Enter());
    const auto marked = [&] {
        const QWidget* under = screen->childAt(buttons.geometry().center());
        return under ? under->objectName().toStdString() : "";
    };
    std::set<std::string> reached;
    const auto walk = [&](const char* to) {
        for (unsigned step = 0, seed = 1; step < 2000 && marked() != to; ++step) {
            seed = seed * 1103515245 + 12345;
            const int way = seed >> 16 & 2 ? 1 : -1;
            seed >> 17 & 2 ? buttons.Move(way, 0) : buttons.Move(0, way);
            reached.insert(marked());
        }
        return marked() == to;
    };
    walk("all");
    EXPECT_EQ(reached.size(), 11u) << "ten below and the time";
    EXPECT_TRUE(walk("TSPauseBtn"));
    buttons.Press();
    EXPECT_FALSE(audio.bPaused) << "not let go yet";
    buttons.Release();
    EXPECT_TRUE(audio.bPaused);
    EXPECT_TRUE(walk("TSPopUpMenuBtn"));
    buttons.Press();
    buttons.Release();
    EXPECT_TRUE(walk("TSMuteBtn") && walk("TSFastForwardBtn"));
    buttons.Press();
    clock.Advance(600);
    buttons.Release();
    EXPECT_EQ(process.Count(WinampForward), 2) << "held, it seeks";
    EXPECT_TRUE(walk("TSswmpBtn"));
    buttons.Press();
    buttons.Release();
    EXPECT_EQ(playlists.Count("ReShow"), 1);
    EXPECT_FALSE(buttons.Offered());
    screen->player().ReDisplay();
    EXPECT_FALSE(buttons.Marked());
    EXPECT_TRUE(buttons.Enter());
    EXPECT_EQ(marked(), "TSswmpBtn") << "as it was left";
}

/// Counts the paint events of a widget.
struct PaintCounter : QObject {
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST_F(Playmp3Test, RedrawsNothingButTheTimeWhilePlaying) {
    Open(9);
    clock.Advance(2000);
    QCoreApplication::processEvents();
    PaintCounter rows(List()), time(*Named("TrackTimeLabel"));
    for (int second = 0; second < 5; ++second) {
        clock.Advance(1000);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(time.paints, 5);
    EXPECT_EQ(rows.paints, 0);
}

TEST_F(Playmp3Test, FitsEveryPanelWithButtonsForAFinger) {
    settings.values.GPSModule = 1;
    for (const QSize size : PanelSizes) {
        SCOPED_TRACE(size.width());
        screens.Remove("playmp3");
        Open(0, 1, size);
        ExpectChildrenInside(*screen);
        EXPECT_GE(Named("TrackTimeLabel")->height(), TouchSide(size.height()));
        const PlayerLayout layout(size.width(), size.height(), true);
        std::vector<QRect> all = {layout.listTitle, layout.clock,   layout.mediaType,
                                  layout.title,     layout.artist,  layout.trackTime,
                                  layout.bitRate,   layout.shuffle, layout.list};
        for (const ButtonPlace& button : layout.buttons) {
            EXPECT_GE(button.rect.width(), TouchSide(size.height()));
            EXPECT_EQ(button.upper, layout.upperBar.contains(button.rect));
            EXPECT_NE(button.upper, layout.bottomBar.contains(button.rect));
            if (!button.upper) all.push_back(button.rect); // an upper one opens over the list
        }
        for (auto one = all.begin(); one != all.end(); ++one) {
            EXPECT_TRUE(QRect(QPoint(), size).contains(*one)) << one - all.begin();
            EXPECT_TRUE(std::none_of(all.begin(), one, [&](QRect r) { return r.intersects(*one); }))
                << one - all.begin();
        }
        EXPECT_EQ(layout.buttons.size(), 19u);
    }
}

TEST_F(Playmp3Test, ShowsTheCoverOfTheTrack) {
    QImage picture(300, 300, QImage::Format_RGB32);
    picture.fill(Qt::red);
    app.MakeFolder("media");
    picture.save(QString::fromStdString(app.File("media/folder.bmp")));
    Open(3);
    auto* cover = static_cast<QLabel*>(Named("imgCoverArt"));
    ASSERT_TRUE(Eventually([&] { return cover->isVisible(); }));
    EXPECT_EQ(cover->grab().toImage().pixelColor(cover->rect().center()), QColor(Qt::red));
    InsertDisc();
    screen->player().sources().Current()->UpdateScreen();
    EXPECT_FALSE(cover->isVisible());
}

} // namespace vk::test
