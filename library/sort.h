// The in-place sort of the browser's arrays.
#pragma once

#include <string>
#include <vector>

namespace vk {

/// Sorts in ascending order by plain comparison of the bytes; the gap is halved from pass to pass.
void ShellSortVariantArray(std::vector<std::string>& array);

} // namespace vk
