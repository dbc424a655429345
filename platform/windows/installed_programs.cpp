#include "platform/installed_programs.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>

namespace vk {

namespace {

constexpr wchar_t Registered[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths";

std::string PathOf(HKEY all, const wchar_t* name) {
    wchar_t path[1024] = L"";
    DWORD bytes = sizeof path - sizeof *path;
    if (::RegGetValueW(all, name, nullptr, RRF_RT_REG_SZ, nullptr, path, &bytes) != 0) return {};
    std::string text = FromWide(path);
    std::erase(text, '"');
    return text;
}

} // namespace

// Programs register where they are; what the start menu calls them is not told there.
std::vector<InstalledProgram> ListInstalledPrograms() {
    std::vector<InstalledProgram> found;
    HKEY all = nullptr;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, Registered, 0, KEY_READ, &all) != 0) return found;
    wchar_t name[256];
    DWORD length = 256;
    for (DWORD i = 0;
         ::RegEnumKeyExW(all, i, name, &length, nullptr, nullptr, nullptr, nullptr) == 0;
         ++i, length = 256) {
        const std::string path = PathOf(all, name);
        if (FileExists(path)) found.push_back({FileNameOf(path), path, {}, {}});
    }
    ::RegCloseKey(all);
    std::ranges::sort(found, {}, &InstalledProgram::name);
    return found;
}

} // namespace vk
