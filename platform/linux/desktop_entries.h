// Programs by their desktop entries
// (https://specifications.freedesktop.org/desktop-entry-spec/1.5/).
#pragma once

#include "platform/installed_programs.h"

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The words of an `Exec` line without its field codes, quotes undone; none when a quote is open.
/// `name` stands for the code of the entry's name.
std::vector<std::string> ExecWords(std::string_view exec, const std::string& name);

/// The programs of the entries below these data folders (`applications/` in each): of two of one
/// name the one in the earlier folder counts. `searched` are the folders of commands without a
/// path. Left out is what is hidden, torn, not there or needs a terminal.
std::vector<InstalledProgram> ReadDesktopEntries(const std::vector<std::string>& dataFolders,
                                                 const std::vector<std::string>& searched);

} // namespace vk
