#include "platform/user_folders.h"

#include "platform/files.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace vk {

namespace {

std::string Named(const wchar_t* variable) {
    wchar_t value[MAX_PATH];
    const DWORD length = ::GetEnvironmentVariableW(variable, value, MAX_PATH);
    return length > 0 && length < MAX_PATH ? FromWide(value) : std::string();
}

} // namespace

std::string HomeFolder() {
    return Named(L"USERPROFILE");
}

std::string UserConfigFolder() {
    return Named(L"APPDATA");
}

std::string UserDataFolder() {
    return Named(L"APPDATA");
}

std::string UserRuntimeFolder() {
    return {};
}

std::string UserTemporaryFolder() {
    return Named(L"TEMP");
}

} // namespace vk
