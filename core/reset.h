// Back to how everything was before the first start.
#pragma once

#include "core/settings.h"

namespace vk {

inline constexpr char RevertQuestion[] =
    "Do you want Velkorandum to reset all values and revert to defaults?\n"
    "This will cause everything to be as it was the first time you launched Velkorandum. \n"
    "If you choose no, you will retain your current settings, but also any errors you have\n"
    "encountered may re-occur.";

/// Deletes the files that a start generates, and the catalogue; the user's media are never touched.
void DeleteGeneratedFiles(SettingsStore& settings);
/// Has the next start begin with that, since this run would write them anew; false when the wish
/// could not be written.
bool AskForReset(const SettingsStore& settings);
/// Does what was asked for in the run before.
void ResetIfAsked(SettingsStore& settings);

} // namespace vk
