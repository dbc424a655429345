// Texts without regard to case and to how accents are written.
#pragma once

#include <string>
#include <string_view>

namespace vk {

/// What a text is compared by: lower case, each accented letter as its base letter and marks
/// (Unicode's canonical decomposition, https://www.unicode.org/reports/tr15/; "ß", "ø" and their
/// like are taken as a base letter and a mark too), of the alphabets, kana and Hangul. Bytes that
/// are not UTF-8 stay as they are.
std::string ComparisonKey(std::string_view text);

/// The same at the end of `key`.
void AppendComparisonKey(std::string_view text, std::string& key);

/// An ASCII letter in lower case; any other byte stays.
inline char Lower(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}
inline bool IsAscii(char byte) {
    return static_cast<signed char>(byte) >= 0;
}
/// True for a byte of UTF-8 that begins no character.
inline bool Continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace vk
