#include "platform/file_date.h"

#include "platform/windows/wide_text.h"

#include <sys/stat.h>

namespace vk {

std::optional<std::int64_t> FileDate(const std::string& path) {
    struct _stat64 info {};
    if (::_wstat64(ToWide(path).c_str(), &info) != 0) return std::nullopt;
    return info.st_mtime;
}

std::optional<std::tm> LocalTime(std::int64_t seconds) {
    const __time64_t moment = seconds;
    std::tm local{};
    if (::_localtime64_s(&local, &moment) != 0) return std::nullopt;
    return local;
}

} // namespace vk
