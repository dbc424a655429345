// The catalogue server DB_UPDATE as start-up meets it: registered or not, there or not.
#pragma once

#include "platform/registry.h"

#include <string>

namespace vk {

/// The class under which the catalogue server is registered.
inline constexpr char CatalogueServerClass[] = "DB_UPDATE.clsDB";

/// Registers `program`, the full path of the server; false when the registry cannot be written.
bool RegisterCatalogueServer(Registry& registry, const std::string& program);

bool CatalogueServerRegistered(const Registry& registry);

/// The program that a reference to the server would start: the one of the application directory, as
/// that may have been copied since the registration, else the registered one; "" when neither
/// exists.
std::string CatalogueServerProgram(const Registry& registry, const std::string& appDir);

} // namespace vk
