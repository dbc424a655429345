// The texts of the system's queries, and how SQLite is brought to understand them.
#pragma once

#include <string>
#include <string_view>

namespace vk {

/// A value for the catalogue: trimmed, every apostrophe turned into a double quote, NULs dropped.
/// Between apostrophes it cannot end the literal.
std::string Escape(std::string_view text);

/// A value for display: trimmed, every double quote turned into an apostrophe.
std::string Unescape(std::string_view text);

/// A query as the system or a list file writes it, for SQLite: "SELECT TOP n" becomes a LIMIT, a
/// literal in double quotes one in apostrophes (with its value escaped), and "\" in a literal
/// compared with Path or ParentDir the separator of this platform.
std::string TranslateQuery(std::string_view sql);

} // namespace vk
