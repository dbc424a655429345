#include "input/remote/uuirt_calls.h"

#include <utility>

namespace vk {

namespace {

template<class Call> void Bind(const LoadedLibrary& library, const char* name, Call& call) {
    call = library.Get<Call>(name);
}

} // namespace

UUIRTCalls::UUIRTCalls(std::unique_ptr<LoadedLibrary> loaded) : library(std::move(loaded)) {
    Bind(*library, "UUIRTGetDrvInfo", UUIRTGetDrvInfo);
    Bind(*library, "UUIRTOpen", UUIRTOpen);
    Bind(*library, "UUIRTClose", UUIRTClose);
    Bind(*library, "UUIRTGetUUIRTInfo", UUIRTGetUUIRTInfo);
    Bind(*library, "UUIRTGetUUIRTConfig", UUIRTGetUUIRTConfig);
    Bind(*library, "UUIRTSetReceiveCallback", UUIRTSetReceiveCallback);
}

bool UUIRTCalls::Complete() const {
    return UUIRTGetDrvInfo && UUIRTOpen && UUIRTClose && UUIRTGetUUIRTInfo && UUIRTGetUUIRTConfig &&
           UUIRTSetReceiveCallback;
}

std::unique_ptr<LoadedLibrary> LoadUUIRTLibrary(std::string& reason) {
#ifdef _WIN32
    return LoadFirstLibrary({"uuirtdrv.dll"}, reason);
#else
    return LoadFirstLibrary({"libuuirtdrv.so.0", "libuuirtdrv.so"}, reason);
#endif
}

} // namespace vk
