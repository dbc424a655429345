// Windows of other programs beside the ones that Qt makes.
#pragma once

#include "platform/foreign_windows.h"

#include <memory>

namespace vk {

/// Null on a display whose windows cannot be taken into ours. Needs a QGuiApplication, which
/// outlives it.
std::unique_ptr<ForeignWindows> MakeForeignWindows();

} // namespace vk
