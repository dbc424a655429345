// The serial ports that the kernel tells of.
#pragma once

#include "platform/serial_list.h"

namespace vk {

/// `classFolder` is /sys/class/tty, `deviceFolder` /dev, but for tests. The machine's own ports
/// have the numbers that they always have; what is plugged in takes the free ones in the order of
/// its names.
SerialList ListSerialPorts(const std::string& classFolder, const std::string& deviceFolder);

} // namespace vk
