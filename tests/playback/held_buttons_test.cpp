#include "playback/audio/held_buttons.h"

#include <gtest/gtest.h>

#include <string>

namespace vk::test {

struct HeldCase {
    HeldAction action;
    std::int32_t repeatAfter;
    const char* ticks; ///< "x" where the action is due, one letter a tick
};

class HeldTicks : public testing::TestWithParam<HeldCase> {};

TEST_P(HeldTicks, ActAsTheTableSays) {
    const HeldCase& held = GetParam();
    HeldButtons buttons;
    buttons.Press(held.action);
    std::string seen;
    for (std::size_t i = 0; i < std::string(held.ticks).size(); ++i)
        seen += buttons.Tick(held.repeatAfter) == held.action ? 'x' : '.';
    EXPECT_EQ(seen, held.ticks);
}

INSTANTIATE_TEST_SUITE_P(
    Actions, HeldTicks,
    testing::Values(HeldCase{HeldVolUp, 4, "xxxxxxx"}, HeldCase{HeldVolDown, 4, "xxxxxxx"},
                    HeldCase{HeldForward, 4, "....xxx"}, HeldCase{HeldRewind, 2, "..xxxxx"},
                    HeldCase{HeldScrollUp, 4, "x...xxx"}, HeldCase{HeldScrollDown, 0, "xxxxxxx"}));

TEST(HeldButtons, APressShorterThanTheHoldIsAClick) {
    for (int ticks : {0, 3, 4, 9}) {
        HeldButtons buttons;
        buttons.Press(HeldForward);
        for (int i = 0; i < ticks; ++i)
            buttons.Tick(4);
        EXPECT_EQ(buttons.Release(4), ticks < 4) << ticks;
        EXPECT_EQ(buttons.Tick(4), HeldNone);
    }
}

} // namespace vk::test
