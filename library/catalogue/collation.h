// How the catalogue compares texts: without regard to case, accents counting less than letters.
#pragma once

#include <string>
#include <string_view>

struct sqlite3;

namespace vk {

/// What a text is compared by: lower case, each accented letter as its base letter and marks
/// (Unicode's canonical decomposition, https://www.unicode.org/reports/tr15/; "ß", "ø" and their
/// like are taken as a base letter and a mark too). Bytes that are not UTF-8 stay as they are.
std::string ComparisonKey(std::string_view text);

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
