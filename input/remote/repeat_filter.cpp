#include "input/remote/repeat_filter.h"

#include <utility>

namespace vk {

namespace {

constexpr float SecondsADay = 86400;
// How long after the delay the repeating may still begin, as a part of the delay.
constexpr float StartTolerance = 0.4F;

// A time before the earlier one is one of the next day. Where the clock was set back instead, the
// difference comes out as hours, and the code as a new press.
float Since(float earlier, float now) {
    const float since = now - earlier;
    return since < 0 ? since + SecondsADay : since;
}

} // namespace

bool RepeatFilter::StillHeld(const std::string& code, float now) {
    const bool soon = Since(std::exchange(heardTime_, now), now) < HeldSeconds;
    return repeatActive && code == lastIRCode && soon;
}

Heard RepeatFilter::Accept(const std::string& code, double secondsOfDay,
                           const RepeatBounds& bounds) {
    const auto now = static_cast<float>(secondsOfDay);
    const bool same = repeatActive && code == lastIRCode;
    const bool held = StillHeld(code, now);
    const float since = Since(lastIRTime, now);
    if (same && since < bounds.speed) return Heard::Dropped;
    if (held && firstCode && since < bounds.delay) return Heard::Dropped;
    LetThrough(code, now);
    firstCode = !held || since >= bounds.delay + StartTolerance * bounds.delay;
    return held ? Heard::Repeat : Heard::Press;
}

Heard RepeatFilter::Note(const std::string& code, double secondsOfDay) {
    const auto now = static_cast<float>(secondsOfDay);
    const bool held = StillHeld(code, now);
    LetThrough(code, now);
    return held ? Heard::Repeat : Heard::Press;
}

void RepeatFilter::LetThrough(const std::string& code, float now) {
    lastIRCode = code;
    lastIRTime = now;
    repeatActive = true;
    firstCode = true;
}

} // namespace vk
