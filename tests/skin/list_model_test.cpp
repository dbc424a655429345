#include "skin/list_model.h"

#include <gtest/gtest.h>

namespace vk::test {

// Text of 15 pixels with the divisor 3 makes rows of 20; 170 pixels hold 8 of them.
struct ListModelTest : testing::Test {
    void Fill(int count, int selected = 0) {
        list.SetGeometry(15, "3", 170);
        list.ClearAllArrays();
        for (int i = 0; i < count; ++i)
            list.AddItem("row " + std::to_string(i), "", "FILE:" + std::to_string(i));
        list.iSelected = selected;
        list.LoadList();
    }
    ListModel list;
};

TEST_F(ListModelTest, GeometryFollowsTheSpacingDivisor) {
    list.AddItem("a", "b", "c");
    EXPECT_EQ(list.ItemCount(), 0) << "nothing is added before the geometry is known";
    for (const auto& [spacing, rowHeight] :
         {std::pair{"4", 25}, {"1", 40}, {"3", 27}, {"0", 27}, {"x", 27}}) {
        list.SetGeometry(20, spacing, 100);
        EXPECT_EQ(list.RowHeight, rowHeight) << spacing;
    }
    Fill(3);
    EXPECT_EQ(list.iMaxVis, 8);
    EXPECT_EQ(list.UsableHeight, 160);
    EXPECT_EQ(list.ThirdRows, 3);
    EXPECT_EQ(list.HalfRows, 3);
}

TEST_F(ListModelTest, RowsReadBackOnceLoadedAndAreFoundReplacedAndRemoved) {
    Fill(0);
    list.ClearAllArrays();
    EXPECT_FALSE(list.Loaded());
    list.AddItem(std::string("a\0b", 3), "t", "PATH:/x", "folder.gif", 7);
    EXPECT_EQ(list.GetSelectedFileName(), "");
    list.LoadList();
    EXPECT_EQ(list.GetSelectedFileName(), "PATH:/x");
    EXPECT_EQ(list.GetSelectedItemText() + list.GetSelectedItemTitle(), "abt");
    EXPECT_EQ(list.GetSelectedFileName(9, true), "");
    EXPECT_EQ(list.Row(0).icon, 7);
    list.ClearArraysXM();
    EXPECT_TRUE(list.Loaded());
    Fill(5);
    EXPECT_EQ(list.MatchItem("FILE:3"), 3);
    EXPECT_EQ(list.MatchItem("file:3"), -1);
    list.RplTitleListItem(1, "new title");
    list.RplartistListItem(1, "new artist");
    list.RplFilenameListItem(1, "PATH:x");
    list.RplFilenameListItem(99, "nowhere");
    EXPECT_EQ(list.GetTitleListusercontrol(1), "new title");
    EXPECT_EQ(list.GetArtistListusercontrol(1), "new artist");
    EXPECT_EQ(list.GetFileNameListusercontrol(1), "PATH:x");
    list.RemoveItem(1);
    list.RemoveItem(99);
    EXPECT_EQ(list.ItemCount(), 4);
    EXPECT_EQ(list.GetIndexFirstArray(1), "row 2");
}

// d and u move, D and U page.
TEST_F(ListModelTest, TheCursorWalksToAThirdThenThePageSlidesAndStopsAtBothEnds) {
    const struct {
        int count;
        const char* moves;
        int first, selected; // -1: whatever it is
    } cases[] = {{20, "dddd", 0, 4},  {20, "ddddd", 1, 5},  {20, "ddddduuu", 0, 2},
                 {10, "ud", -1, 0},   {20, "D", 8, 8},      {20, "DD", 16, -1},
                 {20, "DDD", 16, -1}, {20, "DDDUUU", 0, 0}, {10, "u", -1, 9}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.moves);
        Fill(c.count);
        for (const char* move = c.moves; *move; ++move) {
            if (*move == 'd') list.MoveDown();
            if (*move == 'u') list.MoveUp();
            if (*move == 'D') list.PageDown();
            if (*move == 'U') list.PageUp();
        }
        EXPECT_TRUE(c.first < 0 || list.iFirstVisible == c.first) << list.iFirstVisible;
        EXPECT_TRUE(c.selected < 0 || list.iSelected == c.selected) << list.iSelected;
        EXPECT_TRUE(c.count == 10 || list.IsBottom() == (c.first == 16));
    }
    EXPECT_EQ(list.iPrevSelected, 0);
}

TEST_F(ListModelTest, WhateverMovesThePageTheCursorIsShown) {
    const std::function<void(int)> moves[] = {
        [this](int) { list.PageDown(); },
        [this](int) { list.PageUp(); },
        [this](int row) { list.SelectItem(row, true); },
        [this](int row) { list.SelectItem(row, false, true); },
        [this](int row) { list.SelectItem(row); },
        [this](int) {
            const int top = list.TopRow();
            list.SelectVisible(top);
            ASSERT_EQ(list.TopRow(), top) << "it stands still under the finger";
        },
        [this](int) { list.LoadList(); },
        [this](int) { list.MoveUp(); },
        [this](int) { list.MoveDown(); }};
    for (int count : {0, 1, 7, 8, 9, 16, 17, 100}) {
        Fill(count);
        for (int step = 0; step < 400; ++step) {
            moves[std::min(step * 7 % 11, 8)](count == 0 ? 0 : step * 13 % count);
            if (count == 0) continue;
            ASSERT_GE(list.iSelected, list.TopRow());
            ASSERT_LT(list.iSelected, list.TopRow() + list.iMaxVis);
            ASSERT_LT(list.iSelected, count);
        }
    }
}

TEST_F(ListModelTest, FirstRowAfterLoadingAndSelecting) {
    using Load = std::array<int, 3>;
    for (const auto& [count, selected, first] :
         {Load{5, 3, 0}, Load{100, 0, 0}, Load{100, 5, 5}, Load{100, 50, 46}, Load{100, 95, 91},
          Load{100, 92, 92}, Load{8, 2, 10}}) {
        Fill(count, selected);
        EXPECT_EQ(list.iFirstVisible, first) << count << " rows, " << selected;
    }
    EXPECT_EQ(list.TopRow(), 0) << "a list that fits is shown from its first row";
    for (const auto& [index, jump, keep, first] : {std::tuple{40, true, false, 32},
                                                   {5, true, false, 0},
                                                   {40, false, false, 32},
                                                   {99, false, false, 93},
                                                   {95, false, false, 86},
                                                   {0, false, true, 0},
                                                   {100, false, false, 92}}) {
        Fill(100);
        list.SelectItem(index, jump, keep);
        EXPECT_EQ(list.iFirstVisible, first);
        EXPECT_EQ(list.iSelected, std::min(index, 99));
    }
    Fill(7);
    for (int i : {0, 3, 6, -1, 8}) {
        list.SelectItem(i);
        EXPECT_EQ(list.TopRow(), 0);
    }
    EXPECT_EQ(list.iSelected, 6);
}

TEST_F(ListModelTest, OneCommonArtistIsLeftOut) {
    const struct {
        bool hide, numbered;
        std::vector<const char*> firsts;
        int row;
        const char* shown;
    } cases[] = {{true, false, {"<...>", "Someone - ", "Someone - "}, 1, ""},
                 {true, false, {"<...>", "Someone - ", "Someone - "}, 0, "<...>"},
                 {true, false, {"<...>", "Someone - ", "Other - "}, 1, "Someone - "},
                 {true, false, {"Someone - ", "<...>", "Other - "}, 2, "Other - "},
                 {true, false, {"Someone - "}, 0, "Someone - "},
                 {true, true, {"1 - Someone - ", "2 - Someone - "}, 1, "2 - "},
                 {false, true, {"1 - A - ", "2 - A - "}, 1, "2 - A - "}};
    for (const auto& c : cases) {
        Fill(0);
        list.HideDupes = c.hide;
        list.numberedList = c.numbered;
        for (const char* first : c.firsts)
            list.AddItem(first, "title", "");
        list.LoadList();
        EXPECT_EQ(list.ShownFirst(c.row), c.shown);
    }
}

} // namespace vk::test
