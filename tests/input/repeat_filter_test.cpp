// The bounds of the repeat filter, to the millisecond.
#include "input/remote/repeat_filter.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace vk {
namespace {

// Times that single precision holds exactly: eighths of a second.
constexpr RepeatBounds Bounds{0.25F, 1.25F}; // repeating begins from 1.25 to 1.75 s

struct Step {
    const char* code;
    double at; ///< seconds of the day
    bool accepted;
};

TEST(RepeatFilterTest, LetsThroughWhatTheBoundsSay) {
    const struct {
        const char* what;
        std::vector<Step> steps;
    } cases[] = {
        {"within the pace", {{"a", 10, true}, {"a", 10.125, false}, {"a", 10.25, false}}},
        {"the delay's end", {{"a", 10, true}, {"a", 11.125, false}, {"a", 11.25, true}}},
        {"repeats at the pace",
         {{"a", 10, true}, {"a", 11.25, true}, {"a", 11.375, false}, {"a", 11.5, true}}},
        {"just inside the band, then a repeat",
         {{"a", 10, true}, {"a", 11.625, true}, {"a", 11.875, true}}},
        {"outside the band: a new press with a delay of its own",
         {{"a", 10, true}, {"a", 11.75, true}, {"a", 12, false}, {"a", 13, true}}},
        {"a pause ends the repeating",
         {{"a", 10, true}, {"a", 11.25, true}, {"a", 13, true}, {"a", 13.5, false}}},
        {"another code at once, and it restarts",
         {{"a", 10, true}, {"b", 10, true}, {"a", 10, true}, {"a", 10.5, false}}},
        {"midnight", {{"a", 86399.875, true}, {"a", 0, false}, {"a", 1, false}, {"a", 1.25, true}}},
        {"a clock set back", {{"a", 50000, true}, {"a", 46400, true}, {"a", 46400.125, false}}},
        {"midnight after start", {{"", 0, true}, {"", 0, false}}},
    };
    for (const auto& c : cases) {
        RepeatFilter filter;
        for (const Step& step : c.steps)
            EXPECT_EQ(filter.Accept(step.code, step.at, Bounds) != Heard::Dropped, step.accepted)
                << c.what << " at " << step.at;
    }
}

TEST(RepeatFilterTest, WithoutADelayOnlyThePaceCounts) {
    RepeatFilter filter;
    std::map<Heard, int> heard;
    for (int eighth = 0; eighth < 16; ++eighth)
        ++heard[filter.Accept("a", 10 + eighth / 8.0, {0.25F, 0})];
    EXPECT_EQ(heard,
              (std::map<Heard, int>{{Heard::Dropped, 8}, {Heard::Press, 1}, {Heard::Repeat, 7}}));
    EXPECT_EQ(filter.Accept("a", 12, {0, 0}), Heard::Repeat);
    EXPECT_EQ(filter.Accept("a", 12.5, {0, 0}), Heard::Press) << "it was let go";
}

} // namespace
} // namespace vk
