#include "platform/linux/vlc_plugins.h"

#include <dlfcn.h>
#include <link.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

namespace {

// VLC's reader of tags leaves entries in a list of TagLib, which this process uses as well: it may
// not be unloaded with the instance that loaded it. Under a sanitizer no plug-in may: what an
// unloaded one has kept would be taken for a leak.
bool Stays(std::string_view path) {
#ifdef __SANITIZE_ADDRESS__
    return path.find("/vlc/plugins/") != std::string_view::npos;
#else
    return path.ends_with("/libtaglib_plugin.so");
#endif
}

int FindStaying(dl_phdr_info* object, std::size_t, void* paths) {
    const std::string_view path = object->dlpi_name ? object->dlpi_name : "";
    if (Stays(path)) static_cast<std::vector<std::string>*>(paths)->emplace_back(path);
    return 0;
}

} // namespace

void KeepPlugins() {
    std::vector<std::string> paths;
    ::dl_iterate_phdr(FindStaying, &paths);
    for (const std::string& path : paths)
        static_cast<void>(::dlopen(path.c_str(), RTLD_NOW | RTLD_NODELETE));
}

} // namespace vk
