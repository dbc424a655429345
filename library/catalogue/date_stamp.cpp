#include "library/catalogue/date_stamp.h"

#include "platform/file_date.h"

namespace vk {

namespace {

/// A number of `digits` digits; greater ones lose their leading digits.
void PutNumber(char* end, int number, int digits) {
    for (; digits > 0; --digits, number /= 10)
        *--end = static_cast<char>('0' + number % 10);
}

} // namespace

std::string DateStamp(std::int64_t seconds) {
    const auto local = LocalTime(seconds);
    if (!local) return {};
    std::string stamp = "0000-00-00 00:00:00";
    char* text = stamp.data();
    PutNumber(text + 4, local->tm_year + 1900, 4);
    PutNumber(text + 7, local->tm_mon + 1, 2);
    PutNumber(text + 10, local->tm_mday, 2);
    PutNumber(text + 13, local->tm_hour, 2);
    PutNumber(text + 16, local->tm_min, 2);
    PutNumber(text + 19, local->tm_sec, 2);
    return stamp;
}

std::string GetFileDate(const std::string& path) {
    const auto date = FileDate(path);
    return date ? DateStamp(*date) : std::string();
}

} // namespace vk
