// What the simulated driver library of the USB-UIRT answers.
#pragma once

#include <cstdint>
#include <thread>

namespace vk::test {

/// Its one object is found through the library's call SimState.
struct UuirtSim {
    std::uint32_t version = 0x0100; ///< 0: the call fails
    int openError = 0;
    bool info = true, config = true, takesCallback = true;
    int open = 0;               ///< handles that were not closed
    int closed = 0;             ///< those that were
    void (*onOpen)() = nullptr; ///< within the call
    void (*callback)(const char* code, void* userData) = nullptr;
    void* userData = nullptr;

    /// A button, told on a thread of its own as the driver does.
    void Button(const char* code) const {
        if (callback) std::thread(callback, code, userData).join();
    }
};

} // namespace vk::test
