// How the catalogue compares texts: without regard to case, accents counting less than letters.
#pragma once

#include "library/text/comparison_key.h"

#include <string_view>

struct sqlite3;

namespace vk {

/// Less than, equal to or greater than 0. Letters decide first, accents only between texts of the
/// same letters: a, ä, b; "Ä" equals "ä".
int CompareTexts(std::string_view a, std::string_view b);

/// The same, but texts that differ in any byte are never equal: for paths.
int ComparePaths(std::string_view a, std::string_view b);

/// The SQL operator: "%" stands for any text, "_" for one character, case does not count. A letter
/// without accents in the pattern finds accented ones too.
bool LikeText(std::string_view pattern, std::string_view text);

/// Makes the collations TEXTS and PATHS and this LIKE known to a connection.
void RegisterCollations(sqlite3* handle);

} // namespace vk
