#include "player/engine/list_file.h"
#include "player/engine/play_order.h"

#include <gtest/gtest.h>

#include <set>

namespace vk::test {
namespace {

std::string Paths(int count, char name = 'a') {
    std::string paths;
    for (int index = 0; index < count; ++index)
        paths.append(1, static_cast<char>(name + index)).push_back('\0');
    return paths;
}

TEST(PlayOrder, GoesInOrderAndStopsAtItsEndsOrWraps) {
    PlayOrder list(1);
    EXPECT_FALSE(list.Next());
    list.SetIndex(2); // may come before its list
    EXPECT_FALSE(list.InRange());
    list.Append(Paths(3));
    EXPECT_TRUE(list.InRange());
    EXPECT_STREQ(list.Path(static_cast<std::size_t>(list.Index())), "c");
    EXPECT_FALSE(list.Next());
    EXPECT_EQ(list.PeekNext(), std::nullopt);
    list.SetIndex(-4);
    EXPECT_FALSE(list.Previous());
    EXPECT_EQ(list.Index(), 0);
    list.SetRepeat(true);
    for (const int index : {0, 9}) {
        list.SetIndex(index);
        EXPECT_TRUE(list.Previous());
        EXPECT_EQ(list.Index(), 2);
    }
    EXPECT_EQ(list.PeekNext(), 0u);
}

TEST(PlayOrder, AppendLeavesOutWhatGoesBeyondTheLimits) {
    PlayOrder list(1);
    list.Append(std::string_view("x\0\0unended", 10));
    EXPECT_EQ(list.Size(), 1u);
    std::string many;
    for (std::size_t count = 0; count < ListEntryLimit + 9; ++count)
        many.append("y").push_back('\0');
    list.Append(many);
    EXPECT_EQ(list.Size(), ListEntryLimit);
}

struct ShuffledTest : testing::TestWithParam<std::uint32_t> {
    static constexpr int Count = 9;
    PlayOrder list{GetParam()};
    void SetUp() override {
        list.SetShuffle(true);
        list.SetRepeat(true);
    }
    std::set<std::int32_t> Round(int steps) {
        std::set<std::int32_t> seen{list.Index()};
        list.Begin();
        for (int step = 1; step < steps && list.Next(); ++step)
            seen.insert(list.Index());
        return seen;
    }
};

TEST_P(ShuffledTest, EveryEntryComesOnceARoundAndPreviousGoesBackOverItsEnd) {
    list.SetIndex(4);
    list.Append(Paths(Count));
    EXPECT_EQ(list.Index(), 4);
    EXPECT_EQ(Round(Count).size(), 9u);
    std::vector<std::int32_t> order{list.Index()};
    for (int step = 0; step < 4; ++step) {
        const auto peeked = list.PeekNext();
        ASSERT_TRUE(list.Next());
        EXPECT_TRUE(step == 0 || peeked == static_cast<std::size_t>(list.Index()));
        order.push_back(list.Index());
    }
    EXPECT_NE(order[0], order[1]);
    for (std::size_t place = order.size() - 1; place-- > 0;) {
        ASSERT_TRUE(list.Previous());
        EXPECT_EQ(list.Index(), order[place]);
    }
    EXPECT_EQ(list.PeekNext(), static_cast<std::size_t>(order[1]));
    ASSERT_TRUE(list.Next());
    EXPECT_EQ(list.Index(), order[1]) << "and on as it was";
    EXPECT_EQ(Round(Count).size(), 9u);
}

TEST_P(ShuffledTest, AnEntryChosenByHandHasHadItsTurn) {
    list.Append(Paths(Count));
    std::set<std::int32_t> seen = Round(3);
    list.SetIndex(7);
    seen.insert(7);
    while (seen.size() < Count) {
        ASSERT_TRUE(list.Next());
        ASSERT_TRUE(seen.insert(list.Index()).second);
    }
}

TEST_P(ShuffledTest, EntriesAddedLaterComeInTheSameRoundAndSwitchingOffGoesOnInListOrder) {
    list.Append(Paths(4));
    Round(2);
    list.Append(Paths(5, 'p'));
    EXPECT_EQ(Round(8).size(), 8u);
    list.SetIndex(5);
    list.SetShuffle(false);
    EXPECT_TRUE(list.Next());
    EXPECT_EQ(list.Index(), 6);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ShuffledTest, testing::Values(1u, 2u, 77u));

} // namespace
} // namespace vk::test
