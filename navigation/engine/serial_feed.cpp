#include "navigation/engine/serial_feed.h"

#include <utility>

namespace vk {

SerialFeed::SerialFeed(std::unique_ptr<SerialPort> serial, std::string port, std::string settings)
    : serial_(std::move(serial)), port_(std::move(port)), settings_(std::move(settings)) {
    serial_->OnComm = [this](int event) {
        if (event == comEvReceive && onBytes) onBytes(serial_->Input());
        if (event == comEventDCB && onGone) onGone();
    };
}

bool SerialFeed::Open() {
    return serial_->Open(SerialPortName(port_), settings_, {.owner = "the GPS receiver"});
}

} // namespace vk
