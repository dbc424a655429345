// The bounds of the repeat filter, to the millisecond.
#include "input/remote/repeat_filter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace vk {
namespace {

/// The code comes every eighth of a second, a time that single precision holds exactly.
struct Hold {
    const char* code;
    double from, to; ///< seconds of the day
};

/// What becomes of each code: dropped, a press or a repeat.
std::string Marks(RepeatFilter& filter, const RepeatBounds& bounds,
                  const std::vector<Hold>& holds) {
    std::string marks;
    for (const Hold& hold : holds)
        for (double at = hold.from; at <= hold.to; at += 0.125)
            marks +=
                ".PR"[static_cast<int>(filter.Accept(hold.code, std::fmod(at, 86400), bounds))];
    return marks;
}

constexpr RepeatBounds Bounds{0.25F, 1.25F}; // repeating begins from 1.25 to 1.75 s

TEST(RepeatFilterTest, LetsThroughWhatTheBoundsSay) {
    const struct {
        const char* what;
        RepeatBounds bounds;
        std::vector<Hold> holds;
        const char* marks;
    } cases[] = {
        {"after the delay at the pace", Bounds, {{"a", 10, 11.75}}, "P.........R.R.R"},
        {"taps", Bounds, {{"a", 10, 10}, {"a", 10.5, 10.625}, {"a", 11, 11}}, "PP.P"},
        {"not even taps are faster",
         {0.5F, 0},
         {{"a", 10, 10}, {"a", 10.375, 10.375}, {"a", 10.5, 10.5}},
         "P.R"},
        {"a pause ends the repeating",
         Bounds,
         {{"a", 10, 11.25}, {"a", 11.75, 12}},
         "P.........RP.."},
        {"another code at once", Bounds, {{"a", 10, 10}, {"b", 10, 10}, {"a", 10, 10.25}}, "PPP.."},
        {"midnight", Bounds, {{"a", 86399.875, 86401.125}}, "P.........R"},
        {"a clock set back", Bounds, {{"a", 50000, 50000}, {"a", 46400, 46400.125}}, "PP."},
        {"midnight after start", Bounds, {{"", 0, 0.125}}, "P."},
        {"no delay", {0.25F, 0}, {{"a", 10, 11.875}}, "P.R.R.R.R.R.R.R."},
        {"no bounds", {0, 0}, {{"a", 10, 10.125}, {"a", 10.625, 10.625}}, "PRP"},
    };
    for (const auto& c : cases) {
        RepeatFilter filter;
        EXPECT_EQ(Marks(filter, c.bounds, c.holds), c.marks) << c.what;
    }
}

TEST(RepeatFilterTest, AfterALongCommandTheRepeatingBeginsInsideTheBandOnly) {
    for (const auto& [end, marks] : {std::pair(11.5, "R.R"), {12.0, "R.."}}) {
        RepeatFilter filter;
        Marks(filter, Bounds, {{"a", 10, 10.125}});
        filter.Resume(end);
        EXPECT_EQ(Marks(filter, Bounds, {{"a", end + 0.125, end + 0.375}}), marks);
    }
}

} // namespace
} // namespace vk
