#include "playback/audio/held_buttons.h"

#include <algorithm>

namespace vk {

void HeldButtons::Press(HeldAction action) {
    RepeatAction = action;
    RepeatCount = 0;
}

HeldAction HeldButtons::Tick(std::int32_t repeatAfter) {
    if (RepeatAction == HeldVolUp || RepeatAction == HeldVolDown) {
        ++RepeatCount;
        return RepeatAction;
    }
    if (RepeatAction == HeldNone || RepeatCount >= std::max(1, repeatAfter)) return RepeatAction;
    const bool scrolls = RepeatAction == HeldScrollUp || RepeatAction == HeldScrollDown;
    const bool first = RepeatCount++ == 0;
    return scrolls && first ? RepeatAction : HeldNone;
}

bool HeldButtons::Release(std::int32_t repeatAfter) {
    const bool waits = RepeatAction == HeldForward || RepeatAction == HeldRewind;
    const bool click = RepeatAction != HeldNone &&
                       (waits ? RepeatCount < std::max(1, repeatAfter) : RepeatCount == 0);
    RepeatAction = HeldNone;
    RepeatCount = 0;
    return click;
}

} // namespace vk
