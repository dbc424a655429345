// Whether a file is a map of the engine.
#pragma once

#include <string>

namespace vk {

/// True for a whole archive of map tiles, as `maptool` makes them (a zip file); false for a torn,
/// empty, foreign or missing one. Reads two small pieces of it.
bool IsMapFile(const std::string& path);

} // namespace vk
