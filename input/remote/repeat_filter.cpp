#include "input/remote/repeat_filter.h"

namespace vk {

namespace {

constexpr float SecondsADay = 86400;
// How long after the delay the repeating may still begin, as a part of the delay.
constexpr float StartTolerance = 0.4F;

} // namespace

// A time before the last one is one of the next day. Where the clock was set back instead, the
// difference comes out as hours, and the code as a new press.
float RepeatFilter::SinceLast(float now) const {
    const float since = now - lastIRTime;
    return since < 0 ? since + SecondsADay : since;
}

bool RepeatFilter::Accept(const std::string& code, double secondsOfDay,
                          const RepeatBounds& bounds) {
    const bool same = repeatActive && code == lastIRCode;
    const float since = SinceLast(static_cast<float>(secondsOfDay));
    if (same && since < bounds.speed) return false;
    const bool held = same && since < bounds.delay + StartTolerance * bounds.delay;
    if (held && firstCode && since < bounds.delay) return false;
    Note(code, secondsOfDay);
    firstCode = !held;
    return true;
}

void RepeatFilter::Note(const std::string& code, double secondsOfDay) {
    lastIRCode = code;
    lastIRTime = static_cast<float>(secondsOfDay);
    repeatActive = true;
    firstCode = true;
}

} // namespace vk
