#include "platform/linux/icon_files.h"

#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

std::string IconFiles::Find(const std::string& name) const {
    if (name.empty()) return {};
    if (IsAbsolutePath(name)) return name.ends_with(".png") && FileExists(name) ? name : "";
    const std::string file = name.ends_with(".png") ? name : name + ".png";
    for (const std::string& folder : folders_) {
        for (const char* size : {"64x64", "96x96", "128x128", "48x48", "256x256", "32x32"})
            if (std::string path =
                    JoinPath(folder, std::string("icons/hicolor/") + size + "/apps/" + file);
                FileExists(path))
                return path;
        if (std::string path = JoinPath(folder, "pixmaps/" + file); FileExists(path)) return path;
    }
    return {};
}

} // namespace vk
