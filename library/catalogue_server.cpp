#include "library/catalogue_server.h"

#include "platform/files.h"
#include "platform/paths.h"

namespace vk {

namespace {

#ifdef _WIN32
constexpr char ProgramName[] = "DB_UPDATE.exe";
#else
constexpr char ProgramName[] = "DB_UPDATE";
#endif

} // namespace

bool RegisterCatalogueServer(Registry& registry, const std::string& program) {
    return registry.SetStringValue(Hive::ClassesRoot, CatalogueServerClass, "", program);
}

bool CatalogueServerRegistered(const Registry& registry) {
    return registry.KeyExists(CatalogueServerClass, Hive::ClassesRoot);
}

std::string CatalogueServerProgram(const Registry& registry, const std::string& appDir) {
    std::string own = JoinPath(appDir, ProgramName);
    if (FileExists(own)) return own;
    const auto registered = registry.GetStringValue(Hive::ClassesRoot, CatalogueServerClass, "");
    return registered && FileExists(*registered) ? *registered : std::string();
}

} // namespace vk
