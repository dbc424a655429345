// A driver library with the calls of the USB-UIRT's; a test scripts it through the calls that begin
// with Sim.
#include <cerrno>
#include <cstdint>
#include <thread>

namespace {

using Callback = void (*)(const char* code, void* userData);

struct Info {
    std::uint32_t fwVersion, protVersion;
    std::uint8_t day, month, year;
};

struct Sim {
    std::uint32_t version = 0x0100; ///< 0: the call fails
    int openError = 0;
    bool info = true, config = true, takesCallback = true;
    int open = 0; ///< handles that were not closed
    Callback callback = nullptr;
    void* userData = nullptr;
};

Sim sim;

} // namespace

extern "C" {

int UUIRTGetDrvInfo(std::uint32_t* version) {
    *version = sim.version;
    return sim.version != 0;
}

void* UUIRTOpen() {
    errno = sim.openError;
    if (sim.openError != 0) return reinterpret_cast<void*>(~std::uintptr_t{0});
    ++sim.open;
    return &sim;
}

int UUIRTClose(void* device) {
    --sim.open;
    return device == &sim;
}

int UUIRTGetUUIRTInfo(void*, Info* info) {
    *info = {0x0207, 0x0205, 15, 3, 4};
    return sim.info;
}

int UUIRTGetUUIRTConfig(void*, std::uint32_t* config) {
    *config = 5;
    return sim.config;
}

int UUIRTSetReceiveCallback(void*, Callback callback, void* userData) {
    sim.callback = callback;
    sim.userData = userData;
    return sim.takesCallback;
}

void SimReset() {
    sim = {};
}
void SimVersion(std::uint32_t version) {
    sim.version = version;
}
void SimOpenError(int error) {
    sim.openError = error;
}
void SimAnswers(int info, int config, int takesCallback) {
    sim.info = info;
    sim.config = config;
    sim.takesCallback = takesCallback;
}
int SimOpenHandles() {
    return sim.open;
}
/// A button, told on a thread of the driver.
void SimButton(const char* code) {
    if (sim.callback) std::thread(sim.callback, code, sim.userData).join();
}
}
