#include "core/find_file.h"

#include "core/text.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

std::string EntryLike(const std::string& folder, const std::string& name) {
    std::string path = JoinPath(folder, name);
    if (FileExists(path) || FolderExists(path)) return path;
    for (const FolderEntry& entry : ListFolder(folder))
        if (EqualNoCase(ToUtf8(entry.name), name)) return JoinPath(folder, entry.name);
    return path;
}

} // namespace

std::string FindFile(const std::string& folder, const std::string& name) {
    std::string path = folder;
    for (const std::string& part : Split(ReplaceAll(name, "\\", "/"), '/'))
        if (!part.empty()) path = EntryLike(path, part);
    return path;
}

} // namespace vk
