// The date of a file as the catalogue stores it.
#pragma once

#include <cstdint>
#include <string>

namespace vk {

/// The moment a file was last written, local time, as "2026-11-21 15:04:05": texts of this form are
/// in the order of time. "" when the file is not there.
std::string GetFileDate(const std::string& path);

/// The same for seconds since 1970.
std::string DateStamp(std::int64_t seconds);

} // namespace vk
