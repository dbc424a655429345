#include "core/text.h"

#include "core/ansi_text.h"

#include <algorithm>
#include <charconv>

namespace vk {

namespace {

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Length of the well-formed sequence at the start of `text`, 0 when it is malformed
// (Unicode 15, table 3-7).
std::size_t SequenceLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < low || byte(1) > high) return 0;
    for (std::size_t i = 2; i < length; ++i)
        if (!IsContinuation(text[i])) return 0;
    return length;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = SequenceLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

template<class Change> std::string Mapped(std::string_view text, Change change) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), change);
    return result;
}

} // namespace

std::string ToUtf8(std::string_view bytes) {
    return IsUtf8(bytes) ? std::string(bytes) : AnsiToUtf8(bytes);
}

std::string ToUpper(std::string_view text) {
    return Mapped(text, Upper);
}
std::string ToLower(std::string_view text) {
    return Mapped(text, Lower);
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return Lower(x) == Lower(y); });
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualNoCase(text.substr(0, prefix.size()), prefix);
}

std::string Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return std::string(text);
}

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const auto at = text.find(separator);
        parts.emplace_back(text.substr(0, at));
        if (at == std::string_view::npos) return parts;
        text.remove_prefix(at + 1);
    }
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string result;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) result += separator;
        result += parts[i];
    }
    return result;
}

std::string ReplaceAll(std::string text, std::string_view from, std::string_view to) {
    if (from.empty()) return text;
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

std::string Left(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    while (end < text.size() && count > 0) {
        ++end;
        while (end < text.size() && IsContinuation(text[end]))
            ++end;
        --count;
    }
    return std::string(text.substr(0, end));
}

std::string_view LastBytes(std::string_view text, std::size_t count) {
    return text.substr(text.size() - std::min(count, text.size()));
}

std::optional<std::int64_t> ParseInteger(std::string_view text) {
    const std::string trimmed = Trim(text);
    std::string_view digits = trimmed;
    if (digits.starts_with('+')) digits.remove_prefix(1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

std::optional<double> ParseDecimal(std::string_view text, std::string_view decimalSymbol) {
    const std::string plain = ReplaceAll(Trim(text), decimalSymbol, ".");
    std::string_view digits = plain;
    if (digits.starts_with('+')) digits.remove_prefix(1);
    if (digits.find_first_not_of("+-.0123456789") != std::string_view::npos) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value,
                                              std::chars_format::fixed);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

bool IsNumeric(std::string_view text) {
    return ParseDecimal(text).has_value();
}

} // namespace vk
