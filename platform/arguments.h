// The arguments of a program, as one line of text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The arguments of a command line: parted by blanks, double quotes keep blanks. A quote closes
/// only before a blank or the end, so that a file name may hold quotes itself.
std::vector<std::string> SplitArguments(std::string_view line);

/// The line that `SplitArguments` takes apart into these; one that holds a quote before a blank
/// cannot be written so and comes back in pieces.
std::string JoinArguments(const std::vector<std::string>& arguments);

} // namespace vk
