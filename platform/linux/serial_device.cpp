#include "platform/serial_port.h"

#include <linux/serial.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace vk {

std::string SerialPortName(int number) {
    return "/dev/ttyS" + std::to_string(number - 1);
}

std::string WhyNotOpened(const std::string& name) {
    if (::access(name.c_str(), F_OK) != 0) return "there is no such port";
    if (::access(name.c_str(), R_OK | W_OK) != 0)
        return "no right to use it, the user must be in its group (dialout)";
    return {};
}

void ShortenSerialLatency(std::intptr_t handle) {
    const int fd = static_cast<int>(handle);
    serial_struct serial{};
    if (::ioctl(fd, TIOCGSERIAL, &serial) != 0) return;
    serial.flags |= ASYNC_LOW_LATENCY;
    // Without it codes may come in two pieces from some adapters; nothing worse.
    static_cast<void>(::ioctl(fd, TIOCSSERIAL, &serial));
}

} // namespace vk
