// Where a video disc lies: a drive, a folder or an image.
#pragma once

#include <string>

namespace vk {

/// True for the root of a drive and for a folder with a VIDEO_TS in it (in any case), for that
/// folder, and for the image of a disc.
bool IsDisc(const std::string& path);

/// The disc that a file of a list stands for: itself for an image, the folder for an IFO of one;
/// "" for a plain film.
std::string DiscOfFile(const std::string& path);

} // namespace vk
