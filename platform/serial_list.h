// The serial ports of the machine by number, as lists and searches show them.
#pragma once

#include <array>
#include <string>

namespace vk {

struct ListedSerialPort {
    std::string name; ///< what the device calls itself; "" where there is no such port
    std::string path; ///< what `SerialPort::Open` takes, the same after the next start
};

/// Entry n-1 is COMn. Numbers stay as long as nothing is plugged in or out.
using SerialList = std::array<ListedSerialPort, 16>;

SerialList ListSerialPorts();

} // namespace vk
