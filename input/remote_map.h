// keys.ini: the remote's code of each action.
#pragma once

#include "core/ini_file.h"
#include "input/actions.h"

#include <string>

namespace vk {

/// Reads the codes of all actions from section remote_keys of `file`; a missing one stays empty. To
/// be called again when a code was learnt.
RemoteMap ReadRemoteMap(Ini& ini, const std::string& file);

/// Stores the code of one action. False when the file could not be written.
bool WriteRemoteKey(Ini& ini, const std::string& file, Action action, const std::string& code);

} // namespace vk
