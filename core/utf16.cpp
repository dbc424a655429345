#include "core/utf16.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vk {

namespace {

constexpr std::size_t ProbeBytes = 4096;
constexpr std::size_t OftenOneIn = 4; // of the high bytes: line ends, separators, extensions
constexpr char32_t Replacement = 0xFFFD;

bool Between(char32_t value, char32_t first, char32_t last) {
    return value >= first && value <= last;
}

// Takes one unit off the front.
char32_t TakeUnit(std::string_view& bytes, Utf16Order order) {
    const char32_t first = static_cast<std::uint8_t>(bytes[0]);
    const char32_t second = static_cast<std::uint8_t>(bytes[1]);
    bytes.remove_prefix(2);
    return order == Utf16Order::Little ? first | second << 8 : first << 8 | second;
}

char32_t TakeCodePoint(std::string_view& bytes, Utf16Order order) {
    const char32_t high = TakeUnit(bytes, order);
    if (!Between(high, 0xD800, 0xDFFF)) return high;
    std::string_view rest = bytes;
    if (high > 0xDBFF || rest.size() < 2) return Replacement;
    const char32_t low = TakeUnit(rest, order);
    if (!Between(low, 0xDC00, 0xDFFF)) return Replacement;
    bytes = rest;
    return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

void Append(std::string& out, char32_t c) {
    const auto put = [&](char32_t lead, int shift) {
        out.push_back(static_cast<char>(lead | c >> shift));
        while (shift > 0) {
            shift -= 6;
            out.push_back(static_cast<char>(0x80 | (c >> shift & 0x3F)));
        }
    };
    if (c < 0x80) return put(0, 0);
    if (c < 0x800) return put(0xC0, 6);
    c < 0x10000 ? put(0xE0, 12) : put(0xF0, 18);
}

} // namespace

std::optional<Utf16Order> Utf16OrderOf(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE")) return Utf16Order::Little;
    if (bytes.starts_with("\xFE\xFF")) return Utf16Order::Big;
    const std::string_view probe = bytes.substr(0, ProbeBytes);
    std::array<std::size_t, 2> zeros{}; // at even and at odd places
    for (std::size_t i = 0; i < probe.size(); ++i)
        if (probe[i] == '\0') ++zeros[i % 2];
    const std::size_t often = std::max<std::size_t>(2, probe.size() / 2 / OftenOneIn);
    if (zeros[0] == 0 && zeros[1] >= often) return Utf16Order::Little;
    if (zeros[1] == 0 && zeros[0] >= often) return Utf16Order::Big;
    return std::nullopt;
}

std::string Utf16ToUtf8(std::string_view bytes, Utf16Order order) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) bytes.remove_prefix(2);
    std::string text;
    text.reserve(bytes.size());
    while (bytes.size() >= 2)
        Append(text, TakeCodePoint(bytes, order));
    return text;
}

} // namespace vk
