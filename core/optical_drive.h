// The configured optical drive.
#pragma once

#include "platform/volumes.h"

#include <string>

namespace vk {

/// The root of the drive that is `configured` (a root, "NONE" or "" for none) as it is now: where
/// drives are folders it changes with each disc. The configured root while a drive has it or there
/// is no optical drive at all, else that of the first optical drive; "" when none is configured.
std::string OpticalRoot(const Volumes& volumes, const std::string& configured);

} // namespace vk
