// Times of day as the settings hold them, and the two rules for day and night.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vk {

/// Minutes since midnight of "8:00:00 AM", "20:00" and the like; nothing when it is no time of day.
std::optional<int> ParseTimeOfDay(std::string_view text);

/// The same minutes as "8:00:00 AM".
std::string TimeOfDayText(int minutes);

/// The rule of the running system, in whole minutes since midnight: day from `time1` on until the
/// minute before `time2`. With `time1` not before `time2` it is night all day.
bool IsDay(int now, int time1, int time2);

/// The stricter rule of the start: at `time1` itself it is still night.
bool IsDayAtStart(int now, int time1, int time2);

/// Seconds as "m:ss"; negative values count as 0.
std::string SetTimeFormat(long seconds);

} // namespace vk
