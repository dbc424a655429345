// Lists of satellite channels (.xcl, xm_current.lst): a channel number a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vk {

/// The list of the channels that were last chosen from, in the application directory: the player's
/// next and previous channel.
inline constexpr const char* CurrentChannelsName = "xm_current.lst";

/// The channel numbers of a list's text, in its order; whatever is no number from 1 to 255 is left
/// out.
std::vector<int> ChannelNumbers(std::string_view text);

/// The channel numbers that a file names. Throws `Error` when it cannot be read.
std::vector<int> ReadChannelList(const std::string& path);

/// Replaces the file in one step. False when it could not be written.
bool WriteChannelList(const std::string& path, const std::vector<int>& channels);

} // namespace vk
