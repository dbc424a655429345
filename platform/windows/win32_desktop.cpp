#include "platform/windows/win32_desktop.h"

#include "platform/paths.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>

namespace vk {

namespace {

constexpr wchar_t Policies[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer";
constexpr wchar_t AutoRun[] = L"NoDriveTypeAutoRun";
constexpr wchar_t Explorer[] = L"explorer.exe";

std::string WindowsFolder() {
    wchar_t folder[MAX_PATH] = L"";
    const DWORD length = ::GetEnvironmentVariableW(L"WINDIR", folder, MAX_PATH);
    return FromWide({folder, std::min<std::size_t>(length, MAX_PATH - 1)});
}

std::wstring SystemIni() {
    return ToWide(WindowsFolder() + "\\system.ini");
}

} // namespace

bool Win32Desktop::IsShell() const {
    wchar_t shell[MAX_PATH] = L"";
    ::GetPrivateProfileStringW(L"boot", L"shell", L"", shell, MAX_PATH, SystemIni().c_str());
    return ::_wcsicmp(shell, ToWide(program_).c_str()) == 0;
}

bool Win32Desktop::SetShell(bool on) {
    const std::wstring shell = on ? ToWide(program_) : Explorer;
    return ::WritePrivateProfileStringW(L"boot", L"shell", shell.c_str(), SystemIni().c_str()) != 0;
}

void Win32Desktop::AskAutoPlay(std::function<void(std::optional<std::int32_t>)> told) {
    DWORD value = 0, size = sizeof value;
    const LSTATUS status = ::RegGetValueW(HKEY_CURRENT_USER, Policies, AutoRun, RRF_RT_REG_DWORD,
                                          nullptr, &value, &size);
    told(status == ERROR_SUCCESS ? static_cast<std::int32_t>(value) : UsualOpens);
}

bool Win32Desktop::SetAutoPlay(std::int32_t value) {
    const auto number = static_cast<DWORD>(value);
    return ::RegSetKeyValueW(HKEY_CURRENT_USER, Policies, AutoRun, REG_DWORD, &number,
                             sizeof number) == ERROR_SUCCESS;
}

bool Win32Desktop::OpenExplorer() {
    const std::string folder = WindowsFolder();
    return programs_.Start({folder + "\\explorer.EXE", {}, folder}) != 0;
}

} // namespace vk
