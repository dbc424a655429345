#include "platform/linux/power/gpio_line.h"

#include <gpiod.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <iterator>
#include <string_view>

namespace vk {

bool GpioLine::Open(const std::string& name) {
    Close();
    errno = 0;
    if (!Find(name)) return Fail("no line " + name);
    if (gpiod_line_request_both_edges_events(line_, "Velkorandum") != 0)
        return Fail("the line " + name);
    events_ =
        std::make_unique<QSocketNotifier>(gpiod_line_event_get_fd(line_), QSocketNotifier::Read);
    QObject::connect(events_.get(), &QSocketNotifier::activated, [this] { Changed(); });
    return true;
}

bool GpioLine::Find(const std::string& name) {
    const auto colon = name.rfind(':');
    if (colon == std::string::npos) {
        line_ = gpiod_line_find(name.c_str());
        return line_;
    }
    unsigned offset = 0;
    const std::string_view digits = std::string_view(name).substr(colon + 1);
    const auto [end, wrong] = std::from_chars(digits.begin(), digits.end(), offset);
    if (digits.empty() || wrong != std::errc() || end != digits.end()) return false;
    gpiod_chip* chip = gpiod_chip_open_lookup(name.substr(0, colon).c_str());
    line_ = chip ? gpiod_chip_get_line(chip, offset) : nullptr;
    if (chip && !line_) gpiod_chip_close(chip);
    return line_;
}

bool GpioLine::Fail(const std::string& what) {
    const int error = errno;
    Close();
    failure_ = what + (error ? std::string(": ") + std::strerror(error) : std::string());
    return false;
}

void GpioLine::Close() {
    if (events_) { // it may be telling just now
        events_->setEnabled(false);
        events_.release()->deleteLater();
    }
    if (line_) gpiod_line_close_chip(line_);
    line_ = nullptr;
}

bool GpioLine::High() const {
    return line_ && gpiod_line_get_value(line_) == 1;
}

// What has gathered counts as one change: the level is asked for.
void GpioLine::Changed() {
    gpiod_line_event events[16];
    if (gpiod_line_event_read_multiple(line_, events, std::size(events)) < 0) Close();
    if (onChange) onChange();
}

} // namespace vk
