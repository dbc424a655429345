// Which files a chooser shows.
#pragma once

#include "core/text.h"
#include "platform/paths.h"

#include <algorithm>
#include <functional>
#include <string>

namespace vk {

/// Accepts the files with one of these endings, in any case: "osm pbf o5m".
inline std::function<bool(const std::string&)> EndsIn(const std::string& endings) {
    return [all = Split(endings, ' ')](const std::string& path) {
        return std::ranges::count(all, ToLower(ExtensionOf(path))) > 0;
    };
}

} // namespace vk
