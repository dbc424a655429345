#include "platform/file_date.h"

#include <sys/stat.h>

namespace vk {

std::optional<std::int64_t> FileDate(const std::string& path) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return std::nullopt;
    return info.st_mtime;
}

std::optional<std::tm> LocalTime(std::int64_t seconds) {
    const auto moment = static_cast<std::time_t>(seconds);
    std::tm local{};
    if (!::localtime_r(&moment, &local)) return std::nullopt;
    return local;
}

} // namespace vk
