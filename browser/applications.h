// The list of the programs that can be started.
#pragma once

#include "browser/list_desk.h"

#include <functional>

namespace vk {

/// Replaces the rows of the list by the lines of `apps.lst`.
void PopulateApplications(ListDesk& desk);
/// Starts or resumes the selected one, having left the screen by `leave`; what does not come leads
/// back, with the reason.
void OpenApplication(ListDesk& desk, const std::function<void()>& leave);

} // namespace vk
