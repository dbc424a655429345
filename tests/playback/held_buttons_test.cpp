#include "playback/audio/held_buttons.h"

#include <gtest/gtest.h>

#include <string>

namespace vk::test {

TEST(HeldButtons, ActAtOnceOrAfterTheHoldAndAShorterPressIsAClick) {
    const struct {
        HeldAction action;
        std::int32_t repeatAfter;
        std::string ticks; ///< "x" where the action is due, one letter a tick
        bool click = false;
    } cases[] = {
        {HeldVolUp, 4, "xxxxxxx"},   {HeldVolDown, 4, "xxxxxxx"},   {HeldForward, 4, "....xxx"},
        {HeldRewind, 2, "..xxxxx"},  {HeldScrollUp, 4, "x...xxx"},  {HeldScrollDown, 0, "xxxxxxx"},
        {HeldForward, 0, ".xxxxxx"}, {HeldForward, 4, "...", true}, {HeldForward, 4, "....", false},
        {HeldForward, 4, "", true},  {HeldVolUp, 4, "", true}};
    for (const auto& held : cases) {
        HeldButtons buttons;
        buttons.Press(held.action);
        std::string seen;
        while (seen.size() < held.ticks.size())
            seen += buttons.Tick(held.repeatAfter) == held.action ? 'x' : '.';
        EXPECT_EQ(seen, held.ticks) << held.action;
        EXPECT_EQ(buttons.Release(held.repeatAfter), held.click) << held.action << seen;
        EXPECT_EQ(buttons.Tick(held.repeatAfter), HeldNone);
    }
}

} // namespace vk::test
