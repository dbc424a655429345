#include "platform/serial_list.h"

#include "platform/windows/wide_text.h"

#include <windows.h>

// It needs what the other one declares.
#include <setupapi.h>

#include <algorithm>
#include <cstdlib>

namespace vk {

namespace {

constexpr GUID ComPorts = {
    0x86E0D1E0, 0x8089, 0x11D0, {0x9C, 0xE4, 0x08, 0x00, 0x3E, 0x30, 0x1F, 0x73}};

/// "Communications Port (COM1)" is "Communications Port", number 1.
void Enter(const std::string& friendly, SerialList& list) {
    const auto com = friendly.find("COM", friendly.find('('));
    const auto open = friendly.find('(');
    if (com == std::string::npos || open == std::string::npos) return;
    const int number = std::atoi(friendly.c_str() + com + 3);
    if (number < 1 || number > static_cast<int>(list.size())) return;
    const std::string name = friendly.substr(0, friendly.find_last_not_of(' ', open - 1) + 1);
    list[static_cast<std::size_t>(number - 1)] = {name, "COM" + std::to_string(number)};
}

} // namespace

SerialList ListSerialPorts() {
    SerialList list;
    const HDEVINFO devices =
        ::SetupDiGetClassDevsW(&ComPorts, nullptr, nullptr, DIGCF_PRESENT | DIGCF_DEVICEINTERFACE);
    if (devices == INVALID_HANDLE_VALUE) return list;
    SP_DEVINFO_DATA device{};
    device.cbSize = sizeof device;
    for (DWORD at = 0; ::SetupDiEnumDeviceInfo(devices, at, &device); ++at) {
        wchar_t text[256] = L"";
        if (::SetupDiGetDeviceRegistryPropertyW(devices, &device, SPDRP_FRIENDLYNAME, nullptr,
                                                reinterpret_cast<BYTE*>(text),
                                                sizeof text - sizeof *text, nullptr))
            Enter(FromWide(text), list);
    }
    ::SetupDiDestroyDeviceInfoList(devices);
    return list;
}

} // namespace vk
