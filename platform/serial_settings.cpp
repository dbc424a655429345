#include "platform/serial_port.h"

#include <array>
#include <cctype>
#include <charconv>

namespace vk {

namespace {

template<class Number> bool Read(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

bool Cut(std::string_view text, std::array<std::string_view, 4>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto comma = text.find(',');
        if ((comma == std::string_view::npos) != (i + 1 == fields.size())) return false;
        fields[i] = text.substr(0, comma);
        if (comma != std::string_view::npos) text.remove_prefix(comma + 1);
    }
    return true;
}

} // namespace

std::optional<SerialSettings> ParseSerialSettings(std::string_view text) {
    std::array<std::string_view, 4> fields;
    SerialSettings s;
    if (!Cut(text, fields) || !Read(fields[0], s.baud) || fields[1].size() != 1 ||
        !Read(fields[2], s.dataBits) || !Read(fields[3], s.stopBits))
        return std::nullopt;
    s.parity = static_cast<char>(std::toupper(static_cast<unsigned char>(fields[1][0])));
    const bool known = s.baud > 0 &&
                       std::string_view("NEOMS").find(s.parity) != std::string_view::npos &&
                       s.dataBits >= 5 && s.dataBits <= 8 &&
                       (s.stopBits == 1 || s.stopBits == 1.5 || s.stopBits == 2);
    return known ? std::optional(s) : std::nullopt;
}

std::string SerialPortName(std::string_view setting) {
    if (setting.starts_with('/')) return std::string(setting);
    int number = 0;
    return Read(setting, number) && number > 0 ? SerialPortName(number) : std::string();
}

} // namespace vk
