// kb.ini: the key codes of the actions, as decimal text.
#pragma once

#include "core/ini_file.h"
#include "input/actions.h"

#include <string>

namespace vk {

/// Reads the keys of all actions from section keyboard of `file`; a missing one stays empty.
KeyMap ReadKeyMap(Ini& ini, const std::string& file);

/// Stores the key of one action. False when the file could not be written.
bool WriteKey(Ini& ini, const std::string& file, Action action, const std::string& code);

} // namespace vk
