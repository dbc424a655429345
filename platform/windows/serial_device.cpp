#include "platform/serial_port.h"

namespace vk {

std::string SerialPortName(int number) {
    return "COM" + std::to_string(number);
}

// The system's own text tells them apart.
std::string WhyNotOpened(const std::string&) {
    return {};
}

// The latency is a property of the driver here, set in the device manager.
void ShortenSerialLatency(std::intptr_t) {}

} // namespace vk
