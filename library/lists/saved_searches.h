// The texts that were searched for, newest first: searches_N.lst in the application directory, one
// text a line.
#pragma once

#include "core/settings.h"

#include <string>
#include <vector>

namespace vk {

/// What a text is searched for in; the numbers are those of the files.
enum class SearchKind { Artist = 0, Title = 1, Genre = 2, FileName = 3 };

/// The saved texts of one kind, UTF-8; none when there is no list. Of a foreign file only the first
/// 64 KB are taken.
std::vector<std::string> ReadSavedSearches(const SettingsStore& settings, SearchKind kind);

/// Puts a text on top of its list, which is cut to `SearchesToSave` texts (0 keeps none) and holds
/// no text twice, whatever its case. False, with the system's words in `reason` and the old list as
/// it was, when it could not be read or written.
bool SaveSearch(const SettingsStore& settings, SearchKind kind, const std::string& text,
                std::string* reason);

} // namespace vk
