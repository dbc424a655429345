#include "core/optical_drive.h"

#include "core/text.h"

namespace vk {

std::string OpticalRoot(const Volumes& volumes, const std::string& configured) {
    if (configured.empty() || EqualNoCase(configured, "NONE")) return {};
    std::string first;
    for (const Drive& drive : volumes.Drives()) {
        if (drive.type != DriveType::CdRom) continue;
        if (EqualNoCase(drive.root, configured)) return drive.root;
        if (first.empty()) first = drive.root;
    }
    return first.empty() ? configured : first;
}

} // namespace vk
