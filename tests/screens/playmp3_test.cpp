#include "playback/screen/playmp3.h"
#include "tests/playback/audio_fixture.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace vk::test {

struct Playmp3Test : testing::Test, AudioFixture {
    SkinStore skin{{state, settings, fonts, dialogs, report, [] { return 800; }}};
    PictureCache pictures{skin};
    ControlContext context{state, settings.values, skin, pictures, clock};
    QWidget host;
    std::unique_ptr<playmp3> screen;

    playmp3& Open(int width = 800, int height = 480) {
        state.ScreenWidth = width;
        state.ScreenHeight = height;
        state.CurrentSkinFile = "Torque.skn";
        settings.values.bTSModeEnabled = true;
        skin.LoadSkin();
        host.resize(width, height);
        host.show();
        screen = std::make_unique<playmp3>(context, Needs(), &host);
        return *screen;
    }
    QWidget* Named(const char* name) { return screen->findChild<QWidget*>(name); }
    void Mouse(QEvent::Type type, QWidget* widget, QPoint at) {
        QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(widget, &event);
    }
    void Touch(QWidget* widget, QPoint at, int ticks = 0) {
        Mouse(QEvent::MouseButtonPress, widget, at);
        clock.Advance(ticks * 100);
        Mouse(QEvent::MouseButtonRelease, widget, at);
    }
    void Touch(const char* name, int ticks = 0) {
        Touch(Named(name), Named(name)->rect().center(), ticks);
    }
    UCListBox& List() { return static_cast<UCListBox&>(*Named("UCListBox")); }
};

TEST_F(Playmp3Test, TouchesReachTheOperations) {
    screens.Add("playmp3", Open());
    Choose(40, 3);
    screen->ReShow();
    EXPECT_EQ(process.track, 2);
    Touch("TSPauseBtn");
    EXPECT_TRUE(audio.bPaused);
    Touch("TSPauseBtn");
    Touch("TSFastForwardBtn", 3);
    EXPECT_EQ(process.track, 3);
    Touch("TSFastForwardBtn", 6);
    EXPECT_EQ(process.track, 3);
    EXPECT_EQ(process.Count(WinampForward), 2);
    Touch("TSRewindBtn", 1);
    EXPECT_EQ(process.track, 2);
    Touch("TSshuffleBtn");
    EXPECT_EQ(process.Count(WinampToggleShuffle), 1);
    Touch("TSswmpBtn");
    EXPECT_EQ(playlists.Count("ReShow"), 1);
    screen->ReDisplay();
    Touch("TSdoQuitBtn");
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(Playmp3Test, ATouchedRowPlays) {
    Open();
    Choose(40);
    screen->ReShow();
    const int row = List().model().RowHeight;
    Touch(&List(), {100, 2 * row + row / 2});
    EXPECT_EQ(process.track, 2);
    EXPECT_EQ(List().model().iHighlight, 2);
}

TEST_F(Playmp3Test, AHeldStripScrollsByLines) {
    Open();
    Choose(40);
    screen->ReShow();
    Touch(&List(), {List().width() - 10, List().height() - 3}, 6);
    EXPECT_EQ(List().model().iSelected, 3);
    clock.Advance(1000);
    EXPECT_EQ(List().model().iSelected, 3);
}

TEST_F(Playmp3Test, KeysAndTheWheelReachTheOperations) {
    keys.pause = "32";
    screens.Add("playmp3", Open());
    Choose(9, 5);
    screens.Show("playmp3");
    const auto key = [&](const char* code) { return screens.Current()->Form_KeyDown(code); };
    EXPECT_TRUE(key("40"));
    EXPECT_EQ(List().model().iSelected, 5);
    EXPECT_TRUE(key("13"));
    EXPECT_EQ(process.track, 5);
    EXPECT_TRUE(key("37"));
    EXPECT_EQ(process.track, 4);
    EXPECT_TRUE(key("32"));
    EXPECT_TRUE(audio.bPaused);
    EXPECT_FALSE(key("120"));
    QWheelEvent up({10, 10}, {10, 10}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(screen.get(), &up);
    EXPECT_EQ(List().model().iSelected, 3);
    EXPECT_TRUE(key("27"));
    EXPECT_EQ(menu.Count("ReShow"), 1);
}

TEST_F(Playmp3Test, OffersNothingThatIsNotThere) {
    Open();
    screen->ReShow();
    for (const char* name : {"TSVolUpBtn", "TSVolDownBtn", "TSPopUpMenuBtn"})
        EXPECT_FALSE(Named(name)->isVisible()) << name;
    EXPECT_TRUE(Named("TSRunOkBtn")->isVisible());
}

/// Counts the paint events of a widget and of all in it.
struct PaintCounter : QObject {
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST_F(Playmp3Test, RedrawsNothingButTheTimeWhilePlaying) {
    Open();
    Choose(9);
    screen->ReShow();
    clock.Advance(2000);
    QCoreApplication::processEvents();
    PaintCounter rows, time;
    List().installEventFilter(&rows);
    Named("TrackTimeLabel")->installEventFilter(&time);
    for (int second = 0; second < 5; ++second) {
        clock.Advance(1000);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(time.paints, 5);
    EXPECT_EQ(rows.paints, 0);
}

struct ScreenSize {
    int width, height;
};

class PlayerLayoutTest : public testing::TestWithParam<ScreenSize> {};

TEST_P(PlayerLayoutTest, FitsTheScreenWithButtonsForAFinger) {
    const auto [width, height] = GetParam();
    for (const bool volume : {false, true}) {
        const PlayerLayout layout(width, height, volume);
        std::vector<QRect> all = {layout.listTitle, layout.clock,   layout.mediaType,
                                  layout.title,     layout.artist,  layout.trackTime,
                                  layout.bitRate,   layout.shuffle, layout.list};
        for (const ButtonPlace& button : layout.buttons) {
            EXPECT_GE(button.rect.width(), height * 3 / 20);
            EXPECT_GE(button.rect.height(), height * 3 / 20);
            EXPECT_EQ(button.upper, layout.upperBar.contains(button.rect));
            if (button.upper) continue; // it opens over the list
            EXPECT_TRUE(layout.bottomBar.contains(button.rect));
            all.push_back(button.rect);
        }
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_TRUE(QRect(0, 0, width, height).contains(all[i])) << i;
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_FALSE(all[i].intersects(all[j])) << i << " and " << j;
        }
        EXPECT_EQ(layout.buttons.size(), (volume ? 9u : 7u) + (layout.upperBar.isEmpty() ? 0 : 1));
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, PlayerLayoutTest,
                         testing::Values(ScreenSize{640, 480}, ScreenSize{800, 480},
                                         ScreenSize{1024, 600}, ScreenSize{1024, 768},
                                         ScreenSize{1280, 720}));

TEST_F(Playmp3Test, OpensTheUpperBarOnANarrowScreen) {
    struct Silent : Mixer {
        std::int32_t Min(MixerLine) const override { return 0; }
        std::int32_t Max(MixerLine) const override { return 100; }
        std::int32_t Level(MixerLine) const override { return 50; }
        void SetLevel(MixerLine, std::int32_t) override {}
        bool Mute(MixerLine) const override { return false; }
        void SetMute(MixerLine, bool) override {}
    } sound;
    mixer = &sound;
    Open(640, 480);
    screen->ReShow();
    EXPECT_FALSE(Named("TSshuffleBtn")->isVisible());
    Touch("TSPopUpMenuBtn");
    EXPECT_TRUE(Named("TSshuffleBtn")->isVisible());
    Touch("TSPopUpMenuBtn");
    EXPECT_FALSE(Named("TSshuffleBtn")->isVisible());
}

} // namespace vk::test
