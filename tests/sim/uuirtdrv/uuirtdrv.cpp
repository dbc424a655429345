// A driver library with the calls of the USB-UIRT's, scripted by a test.
#include "tests/sim/uuirtdrv/uuirt_sim.h"

#include <atomic>
#include <cerrno>

namespace {

struct Info {
    std::uint32_t fwVersion, protVersion;
    std::uint8_t day, month, year;
};

vk::test::UuirtSim sim;

} // namespace

extern "C" {

int UUIRTGetDrvInfo(std::uint32_t* version) {
    *version = sim.version;
    return sim.version != 0;
}

void* UUIRTOpen() {
    if (sim.onOpen) sim.onOpen();
    errno = sim.openError;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the driver's invalid handle
    if (sim.openError != 0) return reinterpret_cast<void*>(~std::uintptr_t{0});
    ++std::atomic_ref(sim.open);
    return &sim;
}

int UUIRTClose(void* device) {
    --std::atomic_ref(sim.open);
    ++std::atomic_ref(sim.closed);
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

int UUIRTSetReceiveCallback(void*, decltype(sim.callback) callback, void* userData) {
    sim.callback = callback;
    sim.userData = userData;
    return sim.takesCallback;
}

vk::test::UuirtSim* SimState() {
    return &sim;
}
}
