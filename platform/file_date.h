// When files were written, and what the clocks on the wall showed then.
#pragma once

#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

namespace vk {

/// When the file was last written, seconds since 1970; nothing when it is not there.
std::optional<std::int64_t> FileDate(const std::string& path);

/// A moment, seconds since 1970, in local time; nothing for years that it cannot name. May be
/// called by several threads at once.
std::optional<std::tm> LocalTime(std::int64_t seconds);

} // namespace vk
