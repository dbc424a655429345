#include "skin/controls/uc_list_box.h"
#include "tests/skin/controls_fixture.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

struct ListBoxTest : testing::Test, test::ControlsFixture {
    ListBoxTest() {
        list.setGeometry(100, 40, 600, 400);
        list.SetiMaxVis("back.png", "up.png", "down.png");
        list.onItemClick = [this](int row) { clicked.push_back(row); };
        list.onScrollStop = [this] { ++stops; };
        list.show();
    }
    void Fill(int count, const std::string& descriptor = "FILE:/x") {
        for (int i = 0; i < count; ++i)
            list.AddItem("Row", " text", descriptor);
        list.LoadList();
    }
    QImage RowImage(int row) {
        const int y = (row - model.TopRow()) * model.RowHeight;
        return Drawn(list).copy(0, y, list.width(), model.RowHeight);
    }
    void Press(QPoint at) { test::Press(list, at); }
    void Release(QPoint at) { test::Release(list, at); }
    QPoint UpStrip() const { return {list.width() - 10, 5}; }
    QPoint DownStrip() const { return {list.width() - 10, list.height() - 5}; }

    ListModel model;
    UCListBox list{context, model, &host};
    std::vector<int> clicked;
    int stops = 0;
};

TEST_F(ListBoxTest, GeometryComesFromTheListFontAndTheSpacing) {
    const int text = model.TextHeight;
    EXPECT_GE(text, 27) << "20 points are 27 pixels";
    EXPECT_EQ(model.RowHeight, RoundEven(text * 4.0 / 3));
    EXPECT_EQ(model.iMaxVis, 400 / model.RowHeight);
    settings.values.ListSpacing = "1";
    list.SetiMaxVis("back.png");
    EXPECT_EQ(model.RowHeight, 2 * text);
}

TEST_F(ListBoxTest, NothingIsAddedBeforeTheGeometryIsKnown) {
    ListModel fresh;
    UCListBox other(context, fresh, &host);
    other.AddItem("a", "b", "FILE:c");
    EXPECT_EQ(fresh.ItemCount(), 0);
}

TEST_F(ListBoxTest, TheBackgroundIsThePartBehindTheControl) {
    QImage halves(800, 480, QImage::Format_ARGB32);
    halves.fill(0xFF00000A);
    for (int y = 0; y < 480; ++y)
        for (int x = 0; x < 400; ++x)
            halves.setPixel(x, y, 0xFF00000B);
    halves.save(QString::fromStdString(app.File("skins/My/halves.png")));
    list.SetiMaxVis("halves.png");
    const QImage drawn = Drawn(list);
    EXPECT_EQ(drawn.pixel(298, 100), 0xFF00000Bu);
    EXPECT_EQ(drawn.pixel(301, 100), 0xFF00000Au);
}

TEST_F(ListBoxTest, OnlyTheSelectedRowOfAFocusedListIsRuled) {
    Fill(5);
    list.SelectItem(2);
    EXPECT_GE(Count(RowImage(2), test::Marking), list.width());
    EXPECT_EQ(Count(RowImage(4), test::Marking), 0);
    EXPECT_NE(RowImage(2), RowImage(4));
    list.ShowFocusBar = false;
    EXPECT_EQ(Count(Drawn(list), test::Marking), 0);
    list.ShowFocusBar = true;
    settings.values.ShowSelBar = false;
    EXPECT_EQ(Count(Drawn(list), test::Marking), 0);
}

TEST_F(ListBoxTest, TheTopRowHasOneRuleOfDoubleThickness) {
    Fill(5);
    list.SelectItem(0);
    const int top = Count(Drawn(list), test::Marking);
    list.SelectItem(2);
    EXPECT_EQ(Count(Drawn(list), test::Marking), top);
    EXPECT_EQ(Count(RowImage(0), test::Marking), 0);
}

TEST_F(ListBoxTest, FoldersAndThePlayingRowHaveTheirColours) {
    Fill(3);
    list.AddItem("Albums", "", "PATH:/m");
    list.LoadList();
    EXPECT_GT(Count(RowImage(3), test::Folder), 20);
    EXPECT_EQ(Count(RowImage(1), test::Folder), 0);
    EXPECT_EQ(Count(Drawn(list), test::Playing), 0);
    model.iHighlight = 1;
    EXPECT_GT(Count(RowImage(1), test::Playing), 20);
    list.ShowHighlight = false;
    EXPECT_EQ(Count(Drawn(list), test::Playing), 0);
}

TEST_F(ListBoxTest, LongTextsAreCutAndBothPartsStayVisible) {
    const QImage empty = Drawn(list);
    list.AddItem(std::string(300, 'W') + " - ", std::string(300, 'M'), "FILE:x");
    list.LoadList();
    const QImage drawn = Drawn(list);
    const QRect margin(list.width() - model.TextHeight / 5, 0, 3, model.TextHeight / 2);
    EXPECT_EQ(drawn.copy(margin), RowImage(0).copy(margin));
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

TEST_F(ListBoxTest, ArrowsAreDrawnOnlyInTouchScreenModeAndWhereRowsAreHidden) {
    Fill(40);
    EXPECT_EQ(Count(Drawn(list), test::ArrowDown), 0);
    settings.values.bTSModeEnabled = true;
    EXPECT_EQ(Count(Drawn(list), test::ArrowUp), 0);
    EXPECT_GT(Count(Drawn(list), test::ArrowDown), 1000);
    list.PageDown();
    EXPECT_GT(Count(Drawn(list), test::ArrowUp), 1000);
    list.SelectItem(39);
    EXPECT_EQ(Count(Drawn(list), test::ArrowDown), 0);
}

TEST_F(ListBoxTest, ATouchedRowIsSelectedShownAndThenReported) {
    Fill(40);
    list.PageDown();
    const int top = model.TopRow();
    clock.onSleep = [this] { EXPECT_TRUE(clicked.empty()); };
    Press({60, 3 * model.RowHeight + 2});
    EXPECT_EQ(clicked, std::vector<int>{top + 3});
    EXPECT_EQ(model.iSelected, top + 3);
    EXPECT_EQ(clock.slept, 200);
    EXPECT_EQ(clock.eventRuns, 1);
    Release({60, 3 * model.RowHeight + 2});
    EXPECT_EQ(stops, 1);
}

TEST_F(ListBoxTest, TouchesBesideTheRowsOrInABusyListDoNothing) {
    Fill(2);
    Press({60, 5 * model.RowHeight});
    state.ListBusy = true;
    Press({60, model.RowHeight / 2});
    EXPECT_TRUE(clicked.empty());
    EXPECT_EQ(model.iSelected, 0);
}

TEST_F(ListBoxTest, TheListMayGoAwayWhileATouchIsServed) {
    ListModel other;
    auto* doomed = new UCListBox(context, other, &host);
    doomed->resize(600, 400);
    doomed->SetiMaxVis("back.png");
    doomed->AddItem("a", "", "FILE:a");
    doomed->LoadList();
    doomed->onItemClick = [this](int row) { clicked.push_back(row); };
    clock.onEvents = [&] { delete doomed; };
    test::Press(*doomed, {50, 5});
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListBoxTest, AHeldStripPagesEveryTenthOfASecond) {
    Fill(200);
    const int page = model.iMaxVis;
    Press(DownStrip());
    EXPECT_EQ(model.iFirstVisible, 0);
    clock.Advance(300);
    EXPECT_EQ(model.iFirstVisible, 3 * page);
    state.ListBusy = true;
    clock.Advance(200);
    EXPECT_EQ(model.iFirstVisible, 3 * page);
    state.ListBusy = false;
    Release(DownStrip());
    clock.Advance(500);
    EXPECT_EQ(model.iFirstVisible, 3 * page);
    EXPECT_EQ(stops, 1);
    Press(UpStrip());
    clock.Advance(100);
    Release(UpStrip());
    EXPECT_EQ(model.iFirstVisible, 2 * page);
    EXPECT_TRUE(clicked.empty());
}

TEST_F(ListBoxTest, AScreenMayTakeTheStrips) {
    Fill(200);
    std::vector<int> strips;
    list.onScrollStart = [&](int code) { strips.push_back(code); };
    for (const QPoint strip : {UpStrip(), DownStrip()}) {
        Press(strip);
        clock.Advance(300);
        Release(strip);
    }
    EXPECT_EQ(strips, (std::vector<int>{UCListBox::ScrollUpCode, UCListBox::ScrollDownCode}));
    EXPECT_EQ(stops, 2);
    EXPECT_EQ(model.iFirstVisible, 0) << "the list leaves the paging to the screen";
}

TEST_F(ListBoxTest, AShortTapOfAStripPagesOnceAndHidingLetsGo) {
    Fill(200);
    Press(DownStrip());
    clock.Advance(40);
    Release(DownStrip());
    EXPECT_EQ(model.iFirstVisible, model.iMaxVis);
    Press(DownStrip());
    list.hide();
    clock.Advance(500);
    EXPECT_EQ(model.iFirstVisible, model.iMaxVis);
}

TEST_F(ListBoxTest, LoadListEndsBeingBusy) {
    state.ListBusy = true;
    Fill(3);
    EXPECT_FALSE(state.ListBusy);
    for (const auto& move : {&UCListBox::MoveDown, &UCListBox::PageDown, &UCListBox::PageUp}) {
        (list.*move)();
        EXPECT_FALSE(state.ListBusy);
    }
}

TEST_F(ListBoxTest, CursorMovesWrapAndRemovingShortens) {
    Fill(10);
    list.MoveUp();
    EXPECT_EQ(model.iSelected, 9);
    list.MoveDown();
    EXPECT_EQ(model.iSelected, 0);
    list.RemoveItem(0);
    EXPECT_EQ(model.ItemCount(), 9);
}

} // namespace
} // namespace vk
