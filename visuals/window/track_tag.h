// Artist and title of what plays.
#pragma once

#include <QString>

#include <string>
#include <utility>

namespace vk {

/// Title and artist by the file's tag, else by its name. Any thread may call it; it reads from the
/// disk, and tells of a damaged tag in the log of `logDir`.
std::pair<QString, QString> ReadTrackTag(const std::string& logDir, const std::string& file);

} // namespace vk
