#include "core/file_registry.h"

#include "core/ini_document.h"
#include "core/ini_file.h"
#include "platform/file_state.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/user_folders.h"

#include <filesystem>

namespace vk {

namespace {

std::string Section(Hive hive, const std::string& key) {
    return (hive == Hive::ClassesRoot ? "HKEY_CLASSES_ROOT\\" : "HKEY_CURRENT_USER\\") + key;
}

std::string Name(const std::string& value) {
    return value.empty() ? "@" : value;
}

} // namespace

bool FileRegistry::KeyExists(const std::string& key, Hive hive) const {
    return IniDocument(ReadWholeFile(file_).value_or("")).HasSection(Section(hive, key));
}

std::optional<std::string> FileRegistry::GetStringValue(Hive hive, const std::string& key,
                                                        const std::string& value) const {
    return IniDocument(ReadWholeFile(file_).value_or("")).Value(Section(hive, key), Name(value));
}

bool FileRegistry::Writable() const {
    return CanReplace(file_);
}

bool FileRegistry::SetStringValue(Hive hive, const std::string& key, const std::string& value,
                                  const std::string& data) {
    return WritePrivateProfileString(Section(hive, key), Name(value), data, file_);
}

std::string UserRegistryFile() {
    const std::string config = UserConfigFolder();
    const std::string folder =
        JoinPath(config.empty() ? UserTemporaryFolder() : config, "velkorandum");
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    return JoinPath(folder, "registry.ini");
}

} // namespace vk
