// Artist and title of what plays.
#pragma once

#include <QString>

#include <string>
#include <utility>

namespace vk {

/// Title and artist by the file's tag, else by its name. Any thread may call it; it reads from the
/// disk.
std::pair<QString, QString> ReadTrackTag(const std::string& appDir, const std::string& file);

} // namespace vk
