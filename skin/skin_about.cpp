#include "skin/skin_about.h"

#include "core/find_file.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "skin/skin_file.h"

#include <algorithm>

namespace vk {

namespace {

constexpr std::string_view Ending = ".skn";
constexpr std::size_t LargestSkin = 1 << 20; // bytes

} // namespace

std::vector<SkinAbout> SkinsIn(const std::string& folder) {
    std::vector<SkinAbout> skins;
    for (const FolderEntry& entry : ListFolder(folder)) {
        if (entry.isFolder || !EqualNoCase(LastBytes(entry.name, Ending.size()), Ending)) continue;
        const auto bytes = ReadWholeFile(JoinPath(folder, entry.name), LargestSkin);
        SkinFile file(bytes.value_or(""), ".");
        if (!file.IsSkin()) continue;
        const std::string stem = entry.name.substr(0, entry.name.size() - Ending.size());
        const std::string name = file.Text("Skin", "SKname");
        skins.push_back({entry.name, name.empty() ? stem : name, file.Text("Skin", "SKauthor"),
                         FindFile(JoinPath(folder, stem), file.Text("BGimages", "mainmenu"))});
    }
    std::ranges::sort(skins, {}, &SkinAbout::file);
    return skins;
}

} // namespace vk
