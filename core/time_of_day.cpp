#include "core/time_of_day.h"

#include "core/text.h"

namespace vk {

namespace {

// "AM" and "PM" need an hour of 1 to 12, without them it is 0 to 23.
std::optional<int> HourOf(std::int64_t hour, std::string_view half) {
    if (half.empty()) return hour >= 0 && hour <= 23 ? std::optional<int>(hour) : std::nullopt;
    if (hour < 1 || hour > 12) return std::nullopt;
    return static_cast<int>(hour % 12 + (half == "PM" ? 12 : 0));
}

} // namespace

std::optional<int> ParseTimeOfDay(std::string_view text) {
    std::string clock = ToUpper(Trim(text));
    std::string half;
    if (clock.ends_with("AM") || clock.ends_with("PM")) {
        half = clock.substr(clock.size() - 2);
        clock = Trim(clock.substr(0, clock.size() - 2));
    }
    const auto parts = Split(clock, ':');
    if (parts.size() < 2 || parts.size() > 3) return std::nullopt;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        const auto value = ParseInteger(parts[i]);
        if (!value || *value < 0 || *value > 59) return std::nullopt;
    }
    const auto hour = ParseInteger(parts[0]);
    const auto result = hour ? HourOf(*hour, half) : std::nullopt;
    if (!result) return std::nullopt;
    return *result * 60 + static_cast<int>(*ParseInteger(parts[1]));
}

std::string TimeOfDayText(int minutes) {
    const int hour = minutes / 60 % 12, minute = minutes % 60;
    return std::to_string(hour == 0 ? 12 : hour) + (minute < 10 ? ":0" : ":") +
           std::to_string(minute) + (minutes < 12 * 60 ? ":00 AM" : ":00 PM");
}

bool IsDay(int now, int time1, int time2) {
    const int span = time2 - time1;
    const int left = time2 - now;
    return now >= time1 && left <= span && left >= 1;
}

bool IsDayAtStart(int now, int time1, int time2) {
    return now > time1 && now < time2 && time2 - now < time2 - time1;
}

std::string SetTimeFormat(long seconds) {
    const long whole = seconds < 0 ? 0 : seconds;
    const long rest = whole % 60;
    return std::to_string(whole / 60) + (rest < 10 ? ":0" : ":") + std::to_string(rest);
}

} // namespace vk
