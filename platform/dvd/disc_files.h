// The small files of a video disc, out of its folder or its image.
#pragma once

#include <optional>
#include <string>

namespace vk {

/// A file of the disc's VIDEO_TS by its name in capitals, at most a megabyte of it; nothing when
/// the disc has none or cannot be read. `disc` is the folder above VIDEO_TS, that folder, or an
/// image with an ISO 9660 file system (ECMA-119), as every video disc has one. May wait for the
/// medium.
std::optional<std::string> ReadDiscFile(const std::string& disc, const std::string& name);

} // namespace vk
