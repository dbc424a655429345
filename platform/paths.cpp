#include "platform/paths.h"

#include <string_view>

namespace vk {

namespace {

// Windows takes both separators; elsewhere a backslash is a letter like any other.
constexpr std::string_view Separators = PathSeparator == '\\' ? "\\/" : "/";

std::size_t LastSeparator(const std::string& path) {
    return path.find_last_of(Separators);
}

} // namespace

std::string JoinPath(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    const bool ends = Separators.find(folder.back()) != std::string_view::npos;
    const bool starts = !name.empty() && Separators.find(name.front()) != std::string_view::npos;
    if (ends && starts) return folder + name.substr(1);
    return ends || starts ? folder + name : folder + PathSeparator + name;
}

std::string FileNameOf(const std::string& path) {
    const auto at = LastSeparator(path);
    return at == std::string::npos ? path : path.substr(at + 1);
}

std::string FolderOf(const std::string& path) {
    const auto at = LastSeparator(path);
    if (at == std::string::npos) return {};
    const std::string folder = path.substr(0, at);
    return folder.empty() || folder.back() == ':' ? path.substr(0, at + 1) : folder;
}

std::string ExtensionOf(const std::string& path) {
    const std::string name = FileNameOf(path);
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

bool IsAbsolutePath(const std::string& path) {
    return path.starts_with(PathSeparator) || (PathSeparator == '\\' && path.find(':') == 1);
}

std::string WithoutTrailingSeparator(const std::string& path) {
    std::string result = path;
    while (result.size() > 1 && !IsRoot(result) &&
           Separators.find(result.back()) != std::string_view::npos)
        result.pop_back();
    return result;
}

bool IsRoot(const std::string& path) {
    if (PathSeparator == '/') return path == "/";
    return path.size() <= 3 && path.size() >= 2 && path[1] == ':';
}

} // namespace vk
