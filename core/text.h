// Small operations on text. Text is UTF-8; comparisons "without regard to case" fold ASCII letters,
// as keys, extensions and names of files in settings are ASCII.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The bytes as they are when they are valid UTF-8, else taken as Windows-1252
/// (https://encoding.spec.whatwg.org/index-windows-1252.txt) and converted.
std::string ToUtf8(std::string_view bytes);

/// ASCII letters in upper or lower case; all other bytes stay.
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);
bool EqualNoCase(std::string_view a, std::string_view b);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);

/// Blanks (and tabs and line ends) cut from both ends.
std::string Trim(std::string_view text);

/// The parts between separators; an empty text gives one empty part.
std::vector<std::string> Split(std::string_view text, char separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);
std::string ReplaceAll(std::string text, std::string_view from, std::string_view to);

/// The first `count` characters (code points), never half a character.
std::string Left(std::string_view text, std::size_t count);
/// The last `count` bytes; for ASCII endings such as file extensions.
std::string_view LastBytes(std::string_view text, std::size_t count);

/// A whole decimal number with an optional sign and nothing else around it but blanks.
std::optional<std::int64_t> ParseInteger(std::string_view text);
/// A decimal number whose fraction follows `decimalSymbol`.
std::optional<double> ParseDecimal(std::string_view text, std::string_view decimalSymbol = ".");
/// True when the text would be taken for a number (digits, sign, one point).
bool IsNumeric(std::string_view text);

} // namespace vk
