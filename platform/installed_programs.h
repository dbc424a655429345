// The programs that the machine offers its users.
#pragma once

#include <string>
#include <vector>

namespace vk {

struct InstalledProgram {
    std::string name;    ///< as it is called, UTF-8
    std::string program; ///< full path
    std::vector<std::string> arguments;
    std::string icon; ///< full path of a picture; "" without one
};

/// Those that are there and meant to be seen, by name; what cannot be read is left out. Reads some
/// hundred small files.
std::vector<InstalledProgram> ListInstalledPrograms();

} // namespace vk
