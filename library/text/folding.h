// Letters without case and taken apart into base and marks; the table is made by the build.
#pragma once

#include <array>

namespace vk {

inline constexpr char32_t FirstFolded = 0x80;
inline constexpr char32_t EndFolded =
    0x3100; ///< the alphabets that have case and accents, and kana

using FoldedLetter = std::array<char, 12>; ///< UTF-8, NUL at its end

/// Of `FirstFolded` and on.
extern const FoldedLetter FoldedLetters[EndFolded - FirstFolded];

} // namespace vk
