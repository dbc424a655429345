#include "skin/controls/uc_list_box.h"
#include "tests/skin/controls_fixture.h"

#include <QPainter>

namespace vk::test {

struct ListBoxTest : testing::Test, ControlsFixture {
    ListBoxTest() {
        list.setGeometry(100, 40, 600, 400);
        list.SetiMaxVis("back.png", "up.png", "down.png");
        list.onItemClick = [this](int row) { clicked.push_back(row); };
        list.onScrollStop = [this] { ++stops; };
        list.show();
    }
    void Fill(int count) {
        for (int i = 0; i < count; ++i)
            model.AddItem("Row", " text", "FILE:/x");
        model.LoadList(); // as the screens do
    }
    QImage RowImage(int row) {
        const int y = (row - model.TopRow()) * model.RowHeight;
        return Drawn(list).copy(0, y, list.width(), model.RowHeight);
    }
    void Hold(QPoint at, int milliseconds) {
        Press(list, at);
        clock.Advance(milliseconds);
        Release(list, at);
    }
    QPoint UpStrip() const { return {list.width() - 10, 5}; }
    QPoint DownStrip() const { return {list.width() - 10, list.height() - 5}; }

    ListModel model;
    UCListBox list{context, model, &host};
    std::vector<int> clicked;
    int stops = 0;
};

TEST_F(ListBoxTest, GeometryAndGroundComeFromTheSkinAndTheSpacing) {
    EXPECT_GE(model.TextHeight, 27) << "20 points are 27 pixels";
    EXPECT_EQ(model.iMaxVis, 400 / model.RowHeight);
    QImage halves(800, 480, QImage::Format_RGB32);
    halves.fill(Qt::red);
    QPainter(&halves).fillRect(0, 0, 400, 480, Qt::blue);
    halves.save(QString::fromStdString(app.File("skins/My/halves.png")));
    settings.values.ListSpacing = "1";
    list.SetiMaxVis("halves.png");
    EXPECT_EQ(model.RowHeight, 2 * model.TextHeight);
    EXPECT_EQ(Drawn(list).pixelColor(298, 100), QColor(Qt::blue)) << "the part behind the list";
    EXPECT_EQ(Drawn(list).pixelColor(301, 100), QColor(Qt::red));
    LoadColours("[fonts]\nListtextfontsize=144\n");
    list.SetiMaxVis("back.png");
    EXPECT_EQ(model.iMaxVis, 3) << "a large font makes way";
}

TEST_F(ListBoxTest, TheSelectedRowOfAFocusedListIsRuledFoldersAndThePlayingRowHaveTheirColours) {
    Fill(5);
    list.AddItem("Albums", "", "PATH:/m");
    list.LoadList();
    EXPECT_GT(Count(RowImage(5), Folder), 20);
    EXPECT_EQ(Count(RowImage(1), Folder), 0);
    EXPECT_EQ(Count(Drawn(list), Playing), 0);
    model.iHighlight = 1;
    EXPECT_GT(Count(RowImage(1), Playing), 20);
    list.ShowHighlight = false;
    EXPECT_EQ(Count(Drawn(list), Playing), 0);
    list.SelectItem(2);
    EXPECT_GE(Count(RowImage(2), Marking), list.width());
    EXPECT_EQ(Count(RowImage(4), Marking), 0);
    const int ruled = Count(Drawn(list), Marking);
    list.SelectItem(0);
    EXPECT_EQ(Count(Drawn(list), Marking), ruled) << "the top row has one rule, but double";
    list.ShowFocusBar = false;
    EXPECT_EQ(Count(Drawn(list), Marking), 0);
    list.ShowFocusBar = true;
    settings.values.ShowSelBar = false;
    EXPECT_EQ(Count(Drawn(list), Marking), 0);
}

TEST_F(ListBoxTest, LongTextsAreCutAndBothPartsStayVisible) {
    const QImage empty = Drawn(list);
    settings.values.ShowSelBar = false;
    list.AddItem(std::string(300, 'W') + " - ", std::string(300, 'M'), "FILE:x");
    list.LoadList();
    const QImage drawn = Drawn(list);
    const QRect margin(list.width() - 2, 0, 2, model.RowHeight);
    EXPECT_EQ(drawn.copy(margin), empty.copy(margin));
    list.RplTitleListItem(0, "short");
    EXPECT_NE(Drawn(list), drawn) << "the second text is not pushed out";
    list.ClearAllArrays();
    EXPECT_EQ(Drawn(list), empty);
}

TEST_F(ListBoxTest, RowPicturesAndIconsStandLeftOfTheText) {
    Picture("mp3.png", {50, 50}, 0xFF0000FE);
    list.iconPicture = [](std::int32_t handle, QSize box) {
        QPixmap icon(box);
        icon.fill(QColor::fromRgb(static_cast<QRgb>(handle)));
        return icon;
    };
    list.AddItem("a", "", "FILE:a", "mp3.png");
    list.AddItem("b", "", "EXE:b", "", 0xFE);
    list.AddItem("c", "", "EXE:c", "missing.png");
    list.LoadList();
    const int side = model.RowHeight - model.RowHeight / 8;
    EXPECT_GT(Count(Drawn(list), 0xFF0000FE), side * side * 3 / 2) << "both of them";
}

TEST_F(ListBoxTest, ATouchedRowIsSelectedShownAndThenReported) {
    Fill(40);
    list.PageDown();
    const int touched = model.TopRow() + 3;
    const QPoint point(60, 3 * model.RowHeight + 2);
    commands.Run([&] { Press(list, point); });
    clock.onSleep = [this] { EXPECT_TRUE(clicked.empty()); };
    Press(list, point);
    Release(list, point);
    EXPECT_EQ(clicked, std::vector<int>{touched}) << "once, for a busy list does nothing";
    EXPECT_EQ(model.iSelected, touched);
    EXPECT_EQ(clock.slept, 200);
    EXPECT_EQ(clock.eventRuns, 1);
    EXPECT_EQ(stops, 1);
    clock.onSleep = {};
    Press(list, point);
    EXPECT_EQ(clicked.size(), 2u) << "a second tap on a list as it was";
    list.onItemClick = [this](int row) {
        clicked.push_back(row);
        model.ClearAllArrays();
        Fill(2);
    };
    Press(list, point);
    for (const int wait : {0, 0, 250}) {
        clock.Advance(wait);
        Press(list, {60, 5});
    }
    EXPECT_EQ(clicked.size(), 4u) << "another list lies under the finger at first";
    clock.Advance(250);
    Press(list, {60, 5 * model.RowHeight});
    EXPECT_EQ(clicked.size(), 4u) << "no row there";
    list.onItemClick = [this](int) { clicked.push_back(model.iSelected); };
    clock.onEvents = [this] { model.SelectItem(1); }; // as the track changes
    Press(list, {60, 5});
    EXPECT_EQ(clicked.back(), 0) << "the touched row is the chosen one";
    clock.onEvents = [this] { list.hide(); };
    Press(list, {60, 5});
    EXPECT_EQ(clicked.size(), 5u) << "another screen came";
    auto* doomed = new UCListBox(context, model, &host);
    doomed->resize(600, 400);
    doomed->SetiMaxVis("back.png");
    doomed->onItemClick = list.onItemClick;
    clock.onEvents = [&] { delete doomed; };
    Press(*doomed, {50, 5});
    EXPECT_EQ(clicked.size(), 5u) << "the list itself went away";
}

TEST_F(ListBoxTest, ArrowsOrTrianglesShowInTouchScreenModeWhereRowsAreHidden) {
    Fill(40);
    settings.values.ShowSelBar = false;
    const auto drawn = [this](QRgb up, QRgb down) {
        const auto there = [&](int y, QRgb colour) {
            return Count(Drawn(list).copy(300, y, 300, 40), colour) > 200;
        };
        return std::string(there(0, up) ? "up " : "") + (there(360, down) ? "down" : "");
    };
    EXPECT_EQ(drawn(ArrowUp, ArrowDown), "");
    settings.values.bTSModeEnabled = true;
    EXPECT_EQ(drawn(ArrowUp, ArrowDown), "down");
    list.PageDown();
    EXPECT_EQ(drawn(ArrowUp, ArrowDown), "up down");
    list.SetiMaxVis("back.png", "missing.gif", "missing.gif");
    EXPECT_EQ(drawn(Marking, Marking), "up down") << "plates stand in";
    list.SelectItem(39);
    EXPECT_EQ(drawn(Marking, Marking), "up ");
}

TEST_F(ListBoxTest, AHeldStripPagesAtOnceThenAfterAWaitEveryTenthOfASecond) {
    settings.values.TSRepeatVal = 4;
    Fill(200);
    const int page = model.iMaxVis;
    Press(list, DownStrip());
    EXPECT_EQ(model.iFirstVisible, 0);
    clock.Advance(400);
    EXPECT_EQ(model.iFirstVisible, page);
    clock.Advance(200);
    commands.Run([&] { clock.Advance(200); });
    EXPECT_EQ(model.iFirstVisible, 3 * page);
    commands.Run([&] { Release(list, DownStrip()); });
    clock.Advance(500);
    EXPECT_EQ(model.iFirstVisible, 3 * page);
    EXPECT_EQ(stops, 1);
    Hold(UpStrip(), 100);
    EXPECT_EQ(model.iFirstVisible, 2 * page);
    Hold(DownStrip(), 40);
    EXPECT_EQ(model.iFirstVisible, 3 * page) << "a short tap pages once";
    Hold({list.width() - 10, list.height() - 62}, 40);
    EXPECT_EQ(model.iFirstVisible, 4 * page) << "larger than what is drawn";
    EXPECT_TRUE(clicked.empty());
    Hold({list.width() - 130, 62}, 0);
    list.SelectItem(0);
    Hold({list.width() - 10, 62}, 0);
    EXPECT_EQ(clicked.size(), 2u) << "beside it, and where nothing is left to scroll to, are rows";
}

TEST_F(ListBoxTest, AScreenMayTakeTheStripsAndHidingLetsGoOnce) {
    Fill(200);
    std::vector<int> strips;
    const auto hide = [this](int stopsThen) {
        Press(list, DownStrip());
        for (const bool shown : {false, true, false, true}) {
            list.setVisible(shown);
            clock.Advance(500);
        }
        EXPECT_EQ(stops, stopsThen);
        EXPECT_EQ(model.iFirstVisible, 0);
    };
    hide(1);
    list.onScrollStart = [&](int code) { strips.push_back(code); };
    Hold(UpStrip(), 300);
    Hold(DownStrip(), 300);
    EXPECT_EQ(strips, (std::vector<int>{UCListBox::ScrollUpCode, UCListBox::ScrollDownCode}));
    EXPECT_EQ(model.iFirstVisible, 0) << "the list leaves the paging to the screen";
    EXPECT_EQ(stops, 3);
    hide(4);
}

} // namespace vk::test
