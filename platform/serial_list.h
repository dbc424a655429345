// The serial ports of the machine by number, as lists and searches show them.
#pragma once

#include "platform/serial_port.h"

#include <array>
#include <cstddef>
#include <string>

namespace vk {

struct ListedSerialPort {
    std::string name; ///< what the device calls itself; "" where there is no such port
    std::string path; ///< what `SerialPort::Open` takes, the same after the next start
};

/// Entry n-1 is COMn. Numbers stay as long as nothing is plugged in or out.
using SerialList = std::array<ListedSerialPort, 16>;

SerialList ListSerialPorts();

/// How a setting names the port at a place of the list: by its number where that leads there, else
/// by its path. `SerialPortName` turns it back.
inline std::string SerialSetting(const SerialList& list, std::size_t place) {
    const int number = static_cast<int>(place) + 1;
    return list[place].path == SerialPortName(number) ? std::to_string(number) : list[place].path;
}

} // namespace vk
