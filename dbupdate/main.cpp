// DB_UPDATE, the catalogue server. Started by hand or by the system's first start it registers
// itself; the main program starts it with --serve.
#include "core/file_registry.h"
#include "dbupdate/scan/serve.h"
#include "library/catalogue/schema.h"
#include "library/catalogue_server.h"
#include "platform/paths.h"

#include <cstdio>
#include <cstring>
#include <exception>

namespace {

int Register() {
    vk::FileRegistry registry(vk::UserRegistryFile());
    const std::string program = vk::JoinPath(vk::ExecutableFolder(), "DB_UPDATE");
    if (vk::RegisterCatalogueServer(registry, program)) return 0;
    std::fputs("DB_UPDATE: could not write the registry file\n", stderr);
    return 1;
}

int MakeEmpty(const char* file) {
    try {
        vk::MakeEmptyCatalogue(file);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "DB_UPDATE: %s\n", error.what());
        return 1;
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count == 1) return Register();
    if (count == 2 && std::strcmp(arguments[1], "--serve") == 0) return vk::Serve();
    if (count == 3 && std::strcmp(arguments[1], "--empty") == 0) return MakeEmpty(arguments[2]);
    std::fputs("usage: DB_UPDATE [--serve | --empty FILE]\n", stderr);
    return 2;
}
