// Windows of other programs beside the ones that Qt makes.
#pragma once

#include "platform/foreign_windows.h"

#include <QWidget>

#include <memory>

namespace vk {

/// Null on a display whose windows cannot be taken into ours. Needs a QGuiApplication, which
/// outlives it.
std::unique_ptr<ForeignWindows> MakeForeignWindows();

/// Gives one of our own windows the input, whichever program has it. Qt asks with the time of the
/// last event that it has seen itself, which a display takes for outdated when it has given the
/// input to another program since.
void ForceInput(QWidget& window);

} // namespace vk
