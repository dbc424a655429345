#include "core/ansi_text.h"

#include "core/text.h"

#include <algorithm>
#include <array>

namespace vk {

namespace {

// For 0x80 to 0x9F; the rest equals Latin-1.
constexpr std::array<char32_t, 32> Cp1252 = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AppendCodePoint(std::string& out, char32_t c) {
    const auto put = [&](char32_t v) { out.push_back(static_cast<char>(v)); };
    if (c < 0x80) return put(c);
    if (c < 0x800) {
        put(0xC0 | (c >> 6));
    } else {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
    }
    put(0x80 | (c & 0x3F));
}

// Takes the first character off a text of well-formed UTF-8.
char32_t TakeCodePoint(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t c = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i)
        c = c << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
    text.remove_prefix(length);
    return c;
}

char ToAnsi(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    const auto found = std::ranges::find(Cp1252, c);
    return found == Cp1252.end() ? '?' : static_cast<char>(0x80 + (found - Cp1252.begin()));
}

} // namespace

std::string AnsiToUtf8(std::string_view bytes) {
    std::string result;
    for (const char c : bytes) {
        const auto value = static_cast<unsigned char>(c);
        AppendCodePoint(result, value >= 0x80 && value < 0xA0 ? Cp1252[value - 0x80u] : value);
    }
    return result;
}

std::string Utf8ToAnsi(std::string_view text) {
    const std::string utf8 = ToUtf8(text);
    std::string result;
    for (std::string_view rest = utf8; !rest.empty();)
        result.push_back(ToAnsi(TakeCodePoint(rest)));
    return result;
}

} // namespace vk
