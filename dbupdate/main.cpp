// DB_UPDATE, the catalogue server. Started by hand or by the system's first start it registers
// itself.
#include "core/file_registry.h"
#include "library/catalogue_server.h"
#include "platform/paths.h"

#include <cstdio>

int main() {
    vk::FileRegistry registry(vk::UserRegistryFile());
    const std::string program = vk::JoinPath(vk::ExecutableFolder(), "DB_UPDATE");
    if (vk::RegisterCatalogueServer(registry, program)) return 0;
    std::fputs("DB_UPDATE: could not write the registry file\n", stderr);
    return 1;
}
