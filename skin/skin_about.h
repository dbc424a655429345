// What a skin says of itself.
#pragma once

#include <string>
#include <vector>

namespace vk {

struct SkinAbout {
    std::string file;         ///< its name, with the ending
    std::string name, author; ///< as it says; the file's name when it says nothing
    std::string picture;      ///< its menu's background, full path
};

/// The skins of a folder, in the order of their files' names. What is no skin is left out.
std::vector<SkinAbout> SkinsIn(const std::string& folder);

} // namespace vk
