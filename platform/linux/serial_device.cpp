#include "platform/serial_port.h"

#include <linux/serial.h>
#include <sys/ioctl.h>

namespace vk {

std::string SerialPortName(int number) {
    return "/dev/ttyS" + std::to_string(number - 1);
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
