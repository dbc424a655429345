#include "input/remote/repeat_filter.h"

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

Heard RepeatFilter::Accept(const std::string& code, double secondsOfDay,
                           const RepeatBounds& bounds) {
    const auto now = static_cast<float>(secondsOfDay);
    const bool pressed = repeatActive && code == heard_ && Since(heardTime_, now) < HeldSeconds;
    heard_ = code;
    heardTime_ = now;
    const bool same = repeatActive && code == lastIRCode;
    const float since = Since(lastIRTime, now);
    if (same && since < bounds.speed) return Heard::Dropped;
    const bool held = same && since < bounds.delay + StartTolerance * bounds.delay;
    if (held && firstCode && since < bounds.delay) return Heard::Dropped;
    Note(code, secondsOfDay);
    firstCode = !held;
    return pressed ? Heard::Repeat : Heard::Press;
}

void RepeatFilter::Note(const std::string& code, double secondsOfDay) {
    lastIRCode = heard_ = code;
    lastIRTime = heardTime_ = static_cast<float>(secondsOfDay);
    repeatActive = true;
    firstCode = true;
}

} // namespace vk
