#include "skin/list_model.h"

#include <gtest/gtest.h>

namespace vk {
namespace {

// Text of 15 pixels with the divisor 3 makes rows of 20; 160 pixels hold 8 of them.
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
    struct Case {
        const char* spacing;
        int rowHeight;
    };
    for (const Case& c :
         {Case{"4", 25}, Case{"1", 40}, Case{"3", 27}, Case{"0", 27}, Case{"x", 27}}) {
        list.SetGeometry(20, c.spacing, 100);
        EXPECT_EQ(list.RowHeight, c.rowHeight) << c.spacing;
    }
    Fill(3);
    EXPECT_EQ(list.iMaxVis, 8);
    EXPECT_EQ(list.UsableHeight, 160);
    EXPECT_EQ(list.ThirdRows, 3);
    EXPECT_EQ(list.HalfRows, 3);
}

TEST_F(ListModelTest, NothingIsAddedBeforeTheGeometryIsKnown) {
    list.AddItem("a", "b", "c");
    EXPECT_EQ(list.ItemCount(), 0);
    EXPECT_EQ(list.GetSelectedFileName(), "");
}

TEST_F(ListModelTest, RowsReadBackOnceLoaded) {
    list.SetGeometry(15, "3", 160);
    list.AddItem(std::string("a\0b", 3), "t", "PATH:/x", "folder.gif", 7);
    EXPECT_EQ(list.GetSelectedFileName(), "");
    list.LoadList();
    EXPECT_EQ(list.GetSelectedItemText(), "ab");
    EXPECT_EQ(list.GetSelectedItemTitle(), "t");
    EXPECT_EQ(list.GetSelectedFileName(9, true), "");
    EXPECT_EQ(list.Row(0).icon, 7);
    list.ClearArraysXM();
    EXPECT_TRUE(list.Loaded());
    list.ClearAllArrays();
    EXPECT_FALSE(list.Loaded());
}

TEST_F(ListModelTest, TheCursorWraps) {
    Fill(10);
    list.MoveUp();
    EXPECT_EQ(list.iSelected, 9);
    EXPECT_EQ(list.iPrevSelected, 0);
    list.MoveDown();
    EXPECT_EQ(list.iSelected, 0);
    Fill(0);
    list.MoveUp();
    list.MoveDown();
    list.PageDown();
    list.PageUp();
    EXPECT_EQ(list.ItemCount(), 0);
}

TEST_F(ListModelTest, FirstRowAtLoading) {
    struct Case {
        int count, selected, first;
    };
    for (const Case& c : {Case{5, 3, 0}, Case{100, 0, 0}, Case{100, 5, 5}, Case{100, 50, 46},
                          Case{100, 95, 91}, Case{100, 92, 92}, Case{8, 2, 10}}) {
        Fill(c.count, c.selected);
        EXPECT_EQ(list.iFirstVisible, c.first) << c.count << " rows, " << c.selected;
    }
    EXPECT_EQ(list.TopRow(), 0) << "a list that fits is shown from its first row";
}

TEST_F(ListModelTest, TheCursorWalksToAThirdThenThePageSlides) {
    Fill(20);
    for (int i = 0; i < 4; ++i)
        list.MoveDown();
    EXPECT_EQ(list.iFirstVisible, 0);
    list.MoveDown();
    EXPECT_EQ(list.iSelected, 5);
    EXPECT_EQ(list.iFirstVisible, 1);
    for (int i = 0; i < 3; ++i)
        list.MoveUp();
    EXPECT_EQ(list.iSelected, 2);
    EXPECT_EQ(list.iFirstVisible, 0);
}

TEST_F(ListModelTest, WhateverMovesThePageTheCursorIsShown) {
    for (int count : {1, 7, 8, 9, 16, 17, 100}) {
        Fill(count);
        for (int step = 0; step < 400; ++step) {
            switch (step * 7 % 11) {
            case 0:
                list.PageDown();
                break;
            case 1:
                list.PageUp();
                break;
            case 2:
                list.SelectItem(step * 13 % count, true);
                break;
            case 3:
                list.SelectItem(step * 17 % count, false, true);
                break;
            case 4:
                list.SelectItem(step * 5 % count);
                break;
            case 5:
                list.LoadList();
                break;
            case 6:
                list.MoveUp();
                break;
            default:
                list.MoveDown();
                break;
            }
            ASSERT_GE(list.iSelected, list.TopRow());
            ASSERT_LT(list.iSelected, list.TopRow() + list.iMaxVis);
            ASSERT_LT(list.iSelected, count);
        }
    }
}

TEST_F(ListModelTest, Paging) {
    Fill(20);
    list.PageDown();
    EXPECT_EQ(list.iFirstVisible, 8);
    EXPECT_EQ(list.iSelected, 8);
    EXPECT_FALSE(list.IsBottom());
    list.PageDown();
    EXPECT_EQ(list.iFirstVisible, 16);
    EXPECT_TRUE(list.IsBottom());
    list.PageDown();
    EXPECT_EQ(list.iFirstVisible, 16);
    list.PageUp();
    list.PageUp();
    list.PageUp();
    EXPECT_EQ(list.iFirstVisible, 0);
    EXPECT_EQ(list.iSelected, 0);
}

TEST_F(ListModelTest, SelectingOutsideThePage) {
    struct Case {
        int index;
        bool jump, keep;
        int first;
    };
    for (const Case& c :
         {Case{40, true, false, 32}, Case{5, true, false, 0}, Case{40, false, false, 32},
          Case{99, false, false, 93}, Case{95, false, false, 86}, Case{0, false, true, 0},
          Case{100, false, false, 92}}) {
        Fill(100);
        list.SelectItem(c.index, c.jump, c.keep);
        EXPECT_EQ(list.iFirstVisible, c.first) << c.index;
        EXPECT_EQ(list.iSelected, std::min(c.index, 99));
    }
    Fill(7);
    for (int i = 0; i < 7; ++i) {
        list.SelectItem(i);
        EXPECT_EQ(list.TopRow(), 0);
    }
    list.SelectItem(-1);
    list.SelectItem(8);
    EXPECT_EQ(list.iSelected, 6);
}

TEST_F(ListModelTest, OneCommonArtistIsLeftOut) {
    const auto load = [&](std::initializer_list<const char*> firsts) {
        list.SetGeometry(15, "3", 160);
        list.ClearAllArrays();
        for (const char* first : firsts)
            list.AddItem(first, "title", "");
        list.LoadList();
    };
    list.HideDupes = true;
    load({"<...>", "Someone - ", "Someone - "});
    EXPECT_EQ(list.ShownFirst(1), "");
    EXPECT_EQ(list.ShownFirst(0), "<...>");
    load({"<...>", "Someone - ", "Other - "});
    EXPECT_EQ(list.ShownFirst(1), "Someone - ");
    load({"Someone - ", "<...>", "Other - "});
    EXPECT_EQ(list.ShownFirst(2), "Other - ");
    load({"Someone - "});
    EXPECT_EQ(list.ShownFirst(0), "Someone - ");
    list.numberedList = true;
    load({"1 - Someone - ", "2 - Someone - "});
    EXPECT_EQ(list.ShownFirst(1), "2 - ");
    list.HideDupes = false;
    load({"1 - Someone - ", "2 - Someone - "});
    EXPECT_EQ(list.ShownFirst(1), "2 - Someone - ");
}

TEST_F(ListModelTest, MatchReplaceRemove) {
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

} // namespace
} // namespace vk
