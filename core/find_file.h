// Finding files by names that were written for a system with other rules.
#pragma once

#include <string>

namespace vk {

/// The path of `name` below `folder`: its parts may be separated by "/" or "\", and are looked for
/// without regard to case (of ASCII letters) where there is nothing of just that name. Names on the
/// disk that are not UTF-8 are taken as Windows-1252. A part that is not found stays as it is
/// written.
std::string FindFile(const std::string& folder, const std::string& name);

} // namespace vk
