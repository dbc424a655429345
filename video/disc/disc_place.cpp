#include "video/disc/disc_place.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

constexpr const char* VideoFolder = "VIDEO_TS";

bool IsImage(const std::string& path) {
    const std::string extension = ExtensionOf(path);
    return EqualNoCase(extension, "iso") || EqualNoCase(extension, "img");
}

bool IsVideoFolder(const std::string& path) {
    return EqualNoCase(FileNameOf(path), VideoFolder);
}

bool HoldsVideoFolder(const std::string& folder) {
    for (const FolderEntry& entry : ListFolder(folder))
        if (entry.isFolder && IsVideoFolder(entry.name)) return true;
    return false;
}

} // namespace

bool IsDisc(const std::string& path) {
    if (FileExists(path)) return IsImage(path);
    return FolderExists(path) && (IsVideoFolder(path) || HoldsVideoFolder(path));
}

std::string DiscOfFile(const std::string& path) {
    if (IsImage(path)) return path;
    const bool index = EqualNoCase(ExtensionOf(path), "ifo") && IsVideoFolder(FolderOf(path));
    return index ? FolderOf(path) : std::string();
}

} // namespace vk
