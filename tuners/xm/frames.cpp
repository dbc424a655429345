#include "tuners/xm/frames.h"

#include <array>
#include <initializer_list>

namespace vk {

namespace {

std::string Bytes(std::initializer_list<int> bytes) {
    std::string text;
    for (const int byte : bytes)
        text += static_cast<char>(byte);
    return text;
}

std::string Begun(std::string_view payload) {
    const auto length = static_cast<int>(payload.size());
    return Bytes({0x5A, 0xA5, length >> 8, length & 0xFF}) + std::string(payload);
}

std::string Command(std::initializer_list<int> payload) {
    return Frame(Bytes(payload));
}

} // namespace

std::string Frame(std::string_view payload) {
    return Begun(payload) + Bytes({0xED, 0xED});
}

std::string OpeningFrame(int step) {
    static const std::array<std::string, 3> payloads = {
        Bytes({0x74, 0x00, 0x01}), Bytes({0x74, 0x02, 0x01, 0x01}), Bytes({0x74, 0x0B, 0x00})};
    return Begun(payloads.at(static_cast<std::size_t>(step))) + Bytes({0x74, 0x0D});
}

std::string PowerOnFrame() {
    return Command({0x00, 0x10, 0x10, 0x10, 0x01});
}

std::string PowerOffFrame() {
    return Command({0x01, 0x00});
}

std::string RequestSignalFrame() {
    return Command({0x43});
}

std::string RequestIdFrame() {
    return Command({0x31});
}

std::string SelectFrame(std::uint8_t channel) {
    return Command({0x10, 0x02, channel, 0x00, 0x00, 0x01});
}

std::string MonitorFrame(std::uint8_t channel) {
    return Command({0x50, channel, 0x01, 0x01, 0x01, 0x01});
}

std::string RequestInfoFrame(std::uint8_t channel) {
    return Command({0x25, 0x08, channel, 0x00});
}

std::string RequestNextFrame(std::uint8_t channel) {
    return Command({0x25, 0x09, channel, 0x00});
}

std::uint8_t PayloadByte(std::string_view frame, std::size_t at) {
    at += FrameHeader;
    return at < frame.size() ? static_cast<std::uint8_t>(frame[at]) : std::uint8_t{0};
}

std::string Hex(std::string_view bytes) {
    constexpr char Digits[] = "0123456789ABCDEF";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!text.empty()) text += ' ';
        text += Digits[byte >> 4];
        text += Digits[byte & 15];
    }
    return text;
}

} // namespace vk
