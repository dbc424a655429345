// The list of the programs that can be started.
#pragma once

#include "browser/list_desk.h"

namespace vk {

/// Replaces the rows of the list by the lines of `apps.lst`.
void PopulateApplications(ListDesk& desk);

} // namespace vk
