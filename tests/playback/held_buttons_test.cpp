#include "playback/audio/held_buttons.h"

#include <gtest/gtest.h>

#include <string>

namespace vk::test {

TEST(HeldButtons, ActAtOnceOrAfterTheHold) {
    const struct {
        HeldAction action;
        std::int32_t repeatAfter;
        std::string ticks; ///< "x" where the action is due, one letter a tick
    } cases[] = {{HeldVolUp, 4, "xxxxxxx"},    {HeldVolDown, 4, "xxxxxxx"},
                 {HeldForward, 4, "....xxx"},  {HeldRewind, 2, "..xxxxx"},
                 {HeldScrollUp, 4, "x...xxx"}, {HeldScrollDown, 0, "xxxxxxx"},
                 {HeldForward, 0, ".xxxxxx"}};
    for (const auto& held : cases) {
        HeldButtons buttons;
        buttons.Press(held.action);
        std::string seen;
        while (seen.size() < held.ticks.size())
            seen += buttons.Tick(held.repeatAfter) == held.action ? 'x' : '.';
        EXPECT_EQ(seen, held.ticks) << held.action;
    }
}

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
