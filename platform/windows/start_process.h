// A program's start with all that the system's call wants.
#pragma once

#include "platform/programs.h"

#include <windows.h>

namespace vk {

/// The caller closes the handles, and resumes the thread of what is to be ours. False when it could
/// not be started.
bool StartProcess(const ProgramStart& what, PROCESS_INFORMATION& process);

} // namespace vk
