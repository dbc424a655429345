// The files that a new application directory is given. Each is written whole, lines ended by CR LF;
// an existing file is the caller's to keep.
#pragma once

#include <string>

namespace vk {

/// What the three files hold, for a directory that cannot be written.
std::string SettingsFileText(const std::string& version);
std::string KeyboardFileText();
std::string WinampFileText();

/// settings.ini with its defaults; `version` is major.minor.revision. Key Setup is left out on
/// purpose: a new file leads to the first run. All three return false when the file could not be
/// written.
bool MakeSettingsFile(const std::string& file, const std::string& version);

/// kb.ini with the default key codes.
bool MakeKeyboardFile(const std::string& file);

/// winamp.ini, the player's own settings.
bool MakeWinampFile(const std::string& file);

} // namespace vk
