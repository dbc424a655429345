// Where the user went in the browser: the descriptors chosen since the top, joined by "/".
#pragma once

#include <string>
#include <vector>

namespace vk {

/// The elements of a history. As paths hold "/" too, only one that stands before a descriptor
/// separates.
std::vector<std::string> SplitHistory(const std::string& history);

/// Appends a chosen descriptor.
void PushHistory(std::string& history, const std::string& descriptor);

/// Takes the last element off and returns it; "" of an empty history.
std::string PopHistory(std::string& history);

} // namespace vk
