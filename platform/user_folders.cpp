#include "platform/user_folders.h"

#include "platform/files.h"
#include "platform/paths.h"

#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace vk {

namespace {

constexpr const char* OwnName = "velkorandum";
// Not debug.log, which tells of another folder's runs, and not what was dimmed on another machine.
constexpr std::array<std::string_view, 5> StateExtensions = {"ini", "lst", "m3u", "xcl", "mdb"};

bool IsState(const FolderEntry& entry) {
    const std::string extension = ExtensionOf(entry.name);
    for (const std::string_view each : StateExtensions)
        if (!entry.isFolder && extension == each) return true;
    return false;
}

// In one step: a copy that a power cut has torn is begun anew.
void BeginWith(const std::string& appDir, const std::string& folder) {
    std::error_code failed;
    const std::string copy = folder + ".new";
    std::filesystem::remove_all(copy, failed);
    std::filesystem::create_directories(copy, failed);
    for (const FolderEntry& entry : ListFolder(appDir)) {
        if (!IsState(entry)) continue;
        const std::string file = JoinPath(copy, entry.name);
        CopyFileTo(JoinPath(appDir, entry.name), file);
        std::filesystem::permissions(file, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add, failed);
    }
    std::filesystem::rename(copy, folder, failed);
}

bool Usable(const std::string& appDir, const std::string& folder) {
    if (!FolderExists(folder)) BeginWith(appDir, folder);
    return FolderExists(folder) && CanReplace(JoinPath(folder, "settings.ini"));
}

} // namespace

Folders FindFolders(const std::string& appDir,
                    const std::function<bool(const std::string&)>& takesFiles) {
    Folders folders(appDir);
    if (takesFiles(JoinPath(appDir, "settings.ini"))) return folders;
    const std::pair<std::string, bool> places[] = {{UserDataFolder(), true},
                                                   {UserTemporaryFolder(), false}};
    for (const auto& [place, lasting] : places) {
        if (place.empty()) continue;
        const std::string folder = JoinPath(place, OwnName);
        if (!Usable(appDir, folder)) continue;
        folders.state = folder;
        folders.lasting = lasting;
        return folders;
    }
    return folders;
}

} // namespace vk
