#include "video/movie_holds.h"

namespace vk {

namespace {

constexpr int HeldEvery = 3; // ticks between two steps of the film

} // namespace

void MovieHolds::Do(HeldAction action, int seconds) {
    if (action == HeldVolUp || action == HeldVolDown) return actions_.turn(action == HeldVolUp);
    actions_.skip(action == HeldForward ? seconds : -seconds);
}

void MovieHolds::Tick(int number) {
    const HeldAction action = held_.Tick(RepeatAfter());
    const bool turns = action == HeldVolUp || action == HeldVolDown;
    if (action != HeldNone && (turns || number % HeldEvery == 0)) Do(action, HeldSeconds);
}

void MovieHolds::Release(bool inside) {
    const HeldAction action = held_.Action();
    const bool tap = held_.Release(RepeatAfter());
    if (!tap || !inside) return;
    base_.commands.Run(Commands::When::Queue, [this, action] { Do(action, StepSeconds); });
}

} // namespace vk
