#include "library/text/comparison_key.h"

#include "library/text/folding.h"

#include <algorithm>

namespace vk {

namespace {

// Hangul is taken apart by arithmetic (Unicode 15, section 3.12).
constexpr char32_t FirstSyllable = 0xAC00, EndSyllable = 0xD7A4, Lead = 0x1100, Vowel = 0x1161,
                   Tail = 0x11A7;
constexpr char32_t Vowels = 21, Tails = 28;

/// The letter of the two or three bytes at `at`, 0 when they are none that can be taken apart.
char32_t Listed(std::string_view text, std::size_t at, std::size_t& length) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    length = 1;
    if (byte(0) >= 0xC2 && byte(0) < 0xE0 && at + 1 < text.size() && Continues(text[at + 1])) {
        length = 2;
        return (byte(0) & 0x1Fu) << 6 | (byte(1) & 0x3Fu);
    }
    if (byte(0) >= 0xE1 && byte(0) < 0xF0 && at + 2 < text.size() && Continues(text[at + 1]) &&
        Continues(text[at + 2])) {
        length = 3;
        const char32_t letter = (byte(0) & 0xFu) << 12 | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
        const bool syllable = letter >= FirstSyllable && letter < EndSyllable;
        return letter < EndFolded || syllable ? letter : 0;
    }
    return 0;
}

void AppendLetter(char32_t letter, std::string& key) {
    key += static_cast<char>(0xE0 | letter >> 12);
    key += static_cast<char>(0x80 | (letter >> 6 & 0x3F));
    key += static_cast<char>(0x80 | (letter & 0x3F));
}

void AppendSyllable(char32_t syllable, std::string& key) {
    const char32_t index = syllable - FirstSyllable;
    AppendLetter(Lead + index / (Vowels * Tails), key);
    AppendLetter(Vowel + index / Tails % Vowels, key);
    if (index % Tails != 0) AppendLetter(Tail + index % Tails, key);
}

} // namespace

void AppendComparisonKey(std::string_view text, std::string& key) {
    // Most texts are ASCII: a table scan spends its time here.
    const auto plain = std::ranges::find_if_not(text, IsAscii);
    const std::size_t start = key.size();
    const auto ascii = static_cast<std::size_t>(plain - text.begin());
    key.resize(start + ascii);
    std::transform(text.begin(), plain, key.begin() + static_cast<std::ptrdiff_t>(start), Lower);
    for (std::size_t at = ascii; at < text.size();) {
        if (IsAscii(text[at])) {
            key += Lower(text[at++]);
            continue;
        }
        std::size_t bytes = 1;
        const char32_t letter = Listed(text, at, bytes);
        if (letter == 0)
            key.append(text.substr(at, bytes));
        else if (letter < EndFolded)
            key.append(FoldedLetters[letter - FirstFolded].data());
        else
            AppendSyllable(letter, key);
        at += bytes;
    }
}

std::string ComparisonKey(std::string_view text) {
    std::string key;
    AppendComparisonKey(text, key);
    return key;
}

} // namespace vk
