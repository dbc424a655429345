// The calls of the USB-UIRT's driver library, uuirtdrv, as its vendor's header declares them.
#pragma once

#include "platform/loaded_library.h"

#include <cstdint>
#include <memory>
#include <string>

#ifdef _WIN32
#define VK_UUIRT_CALL __stdcall
#else
#define VK_UUIRT_CALL
#endif

namespace vk {

/// What `UUIRTGetUUIRTInfo` fills. Versions have the major number in the high byte.
struct UUINFO {
    std::uint32_t fwVersion;
    std::uint32_t protVersion;
    std::uint8_t fwDateDay;
    std::uint8_t fwDateMonth;
    std::uint8_t fwDateYear; ///< from 2000
};

/// Gets the code of a button, 12 hexadecimal digits, on a thread of the driver.
using UUIRTReceiveCallback = void(VK_UUIRT_CALL*)(const char* code, void* userData);

/// Why `UUIRTOpen` failed, as the thread's last error says.
enum UUIRTError : unsigned {
    UUIRTDRV_ERR_NO_DEVICE = 0x20000001,
    UUIRTDRV_ERR_NO_RESP = 0x20000002,
    UUIRTDRV_ERR_NO_DLL = 0x20000003, ///< the USB driver below this library is missing
    UUIRTDRV_ERR_VERSION = 0x20000004 ///< firmware and library do not match
};

/// Bits of the configuration.
enum UUIRTConfig : std::uint32_t {
    UUIRTDRV_CFG_LEDRX = 1,
    UUIRTDRV_CFG_LEDTX = 2,
    UUIRTDRV_CFG_LEGACYRX = 4
};

/// The calls that are used, bound to a loaded library.
struct UUIRTCalls {
    using Handle = void*;
    /// What `UUIRTOpen` gives when it fails: all bits set.
    // NOLINTNEXTLINE(performance-no-int-to-ptr): no pointer but a mark
    static Handle InvalidHandle() { return reinterpret_cast<Handle>(~std::uintptr_t{0}); }

    /// Takes over `library`; calls that it lacks stay null.
    explicit UUIRTCalls(std::unique_ptr<LoadedLibrary> library);
    /// True when every call is there.
    bool Complete() const;

    int(VK_UUIRT_CALL* UUIRTGetDrvInfo)(std::uint32_t* version);
    Handle(VK_UUIRT_CALL* UUIRTOpen)();
    int(VK_UUIRT_CALL* UUIRTClose)(Handle);
    int(VK_UUIRT_CALL* UUIRTGetUUIRTInfo)(Handle, UUINFO*);
    int(VK_UUIRT_CALL* UUIRTGetUUIRTConfig)(Handle, std::uint32_t*);
    int(VK_UUIRT_CALL* UUIRTSetReceiveCallback)(Handle, UUIRTReceiveCallback, void* userData);

    std::unique_ptr<LoadedLibrary> library;
};

/// Loads the driver library; null when there is none, with the loader's words in `reason`.
std::unique_ptr<LoadedLibrary> LoadUUIRTLibrary(std::string& reason);

} // namespace vk
