// Does a file tell its length, or is it estimated?
#pragma once

#include <string>

namespace vk {

/// True for containers, and for MPEG audio whose first frame bears a Xing, Info or VBRI header
/// (http://gabriel.mp3-tech.org/mp3infotag.html). Of other streams a length is known from the size
/// and the rate of the beginning alone, and may be far off. False for what cannot be read.
bool LengthIsCertain(const std::string& path);

} // namespace vk
